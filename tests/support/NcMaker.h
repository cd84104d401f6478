#pragma once

#include <netcdf.h>

#include <cstdint>
#include <string>
#include <vector>

namespace support {

// Makes small netCDF files for the tests. Any refusal of the library throws, so that a test
// never runs on a file other than the one it describes.
class NcMaker {
 public:
  // mode: 0 classic, NC_64BIT_OFFSET, NC_NETCDF4, ...
  explicit NcMaker(const std::string& path, int mode = 0);
  ~NcMaker();
  NcMaker(const NcMaker&) = delete;
  NcMaker& operator=(const NcMaker&) = delete;

  int dim(const std::string& name, std::size_t length);  // NC_UNLIMITED makes it unlimited
  int var(const std::string& name, nc_type type, const std::vector<int>& dims);

  void text(int var, const std::string& name, const std::string& value);  // NC_GLOBAL allowed
  void number(int var, const std::string& name, nc_type type, const std::vector<double>& values);

  // Whole variable, converted by the library; also ends define mode.
  void put(int var, const std::vector<double>& values);
  // A hyperslab, for record variables.
  void putSlab(int var, const std::vector<std::size_t>& start,
               const std::vector<std::size_t>& count, const std::vector<double>& values);
  // Ends the file; called by the destructor too.
  void close();
  int id() const { return ncid_; }

 private:
  void endDefinitions();
  int ncid_ = -1;
  bool defining_ = true;
};

}  // namespace support
