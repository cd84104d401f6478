#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "fit/Input.h"
#include "fit/Plan.h"
#include "fit/Regridder.h"
#include "fit/Request.h"

namespace cli::fit {

// Writes the copy that a plan describes, block by block: a block, and with a new grid one plane of
// the old and of the new one, is all that is in memory at a time.
class Writer {
 public:
  Writer(const Input& input, const Plan& plan, Method method, std::set<int> refilled);
  ~Writer();
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  // Blocks to be written in all.
  int32_t blocks() const;
  // Writes the file. The result is the input's variables of which the control would misread
  // values; they need another number for what is missing, and the file is not complete then.
  // Throws Failure.
  std::set<int> write(const std::string& path, const std::function<void(int32_t done)>& progress);

 private:
  struct Shape;

  void define();
  void defineAttributes(int id, const PlanVar* variable, const Attributes& attributes);
  Shape shapeOf(const PlanVar& variable) const;
  bool writeVariable(std::size_t number);
  void readBlock(const PlanVar& variable, const std::vector<std::size_t>& start,
                 const std::vector<std::size_t>& count, std::vector<double>& values);
  const Regridder& regridder(int grid);
  void put(std::size_t number, const std::vector<std::size_t>& start,
           const std::vector<std::size_t>& count, const std::vector<double>& values);

  const Input& input_;
  const Plan& plan_;
  Method method_;
  std::set<int> refilled_;
  int id_ = -1;
  std::vector<int> dimIds_, varIds_;
  std::vector<std::unique_ptr<Regridder>> regridders_;
  std::function<void(int32_t)> progress_;
  int32_t done_ = 0;
};

}  // namespace cli::fit
