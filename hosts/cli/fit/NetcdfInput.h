#pragma once

#include <string>
#include <vector>

#include "fit/Input.h"

namespace cli::fit {

// A file or an OPeNDAP data set, open for reading only. Throws Failure with the library's reason.
class NetcdfInput : public Input {
 public:
  explicit NetcdfInput(const std::string& name);
  ~NetcdfInput() override;
  NetcdfInput(const NetcdfInput&) = delete;
  NetcdfInput& operator=(const NetcdfInput&) = delete;

  const Header& header() const override { return header_; }
  void read(int variable, const std::vector<std::size_t>& start,
            const std::vector<std::size_t>& count, double* values) const override;

 private:
  void readHeader();
  void check(int status) const;
  Attributes attributes(int variable) const;
  void addVariable(int id);
  std::size_t widestString(int id, const std::vector<int>& dims) const;
  void readStrings(int variable, const std::vector<std::size_t>& start,
                   const std::vector<std::size_t>& count, double* values) const;

  std::string name_;
  int id_ = -1;
  Header header_;
  std::vector<int> ids_;  // the library's number of each variable
};

}  // namespace cli::fit
