#pragma once

#include <netcdf.h>

#include <string>
#include <vector>

namespace dapserver {

// A netCDF file that is served, read-only. Every refusal of the library throws
// std::runtime_error.
class NcFile {
 public:
  struct Dimension {
    std::string name;
    std::size_t length;
    bool unlimited;
  };
  struct Variable {
    int id;
    std::string name;
    nc_type type;
    std::vector<int> dimensions;
  };

  explicit NcFile(const std::string& path);
  ~NcFile();
  NcFile(const NcFile&) = delete;
  NcFile& operator=(const NcFile&) = delete;

  int id() const { return id_; }
  const std::vector<Dimension>& dimensions() const { return dimensions_; }
  const std::vector<Variable>& variables() const { return variables_; }
  // The variable that has the dimension's name and no other dimension; null when there is none.
  const Variable* coordinate(int dimension) const;
  std::vector<std::string> attributeNames(int variable) const;  // NC_GLOBAL allowed

  static void check(int status);

 private:
  int id_ = -1;
  std::vector<Dimension> dimensions_;
  std::vector<Variable> variables_;
};

}  // namespace dapserver
