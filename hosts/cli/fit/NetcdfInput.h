#pragma once

#include <string>
#include <vector>

#include "fit/Input.h"

namespace cli::fit {

// A file or an OPeNDAP data set, or a group of it, open for reading only. Throws Failure with the
// library's reason.
class NetcdfInput : public Input {
 public:
  explicit NetcdfInput(const std::string& name, const std::string& group = {});
  ~NetcdfInput() override;
  NetcdfInput(const NetcdfInput&) = delete;
  NetcdfInput& operator=(const NetcdfInput&) = delete;

  const Header& header() const override { return header_; }
  const std::vector<std::string>& leftOut() const override { return leftOut_; }
  void read(int variable, const std::vector<std::size_t>& start,
            const std::vector<std::size_t>& count, double* values) const override;

 private:
  void takeHeader(const std::string& group);
  void check(int status) const;
  static void tidy(Attributes& attributes);
  void addVariable(Variable variable);
  std::size_t widestString(const Variable& variable) const;
  void readStrings(const Variable& variable, const std::vector<std::size_t>& start,
                   const std::vector<std::size_t>& count, double* values) const;

  std::string name_;
  int id_ = -1;
  Header header_;
  std::vector<std::string> leftOut_;
};

}  // namespace cli::fit
