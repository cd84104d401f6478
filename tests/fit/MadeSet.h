#pragma once

#include <netcdf.h>

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "support/NcMaker.h"

namespace fit_test {

struct MadeAxis {
  std::string name, units;
  std::vector<double> values;
  nc_type type = NC_DOUBLE;
  std::string dim = {};  // the name, when empty
  std::vector<std::pair<std::string, std::string>> attributes = {};
  bool withoutVariable = false;
  bool withoutDimension = false;  // a variable without dimensions, or nothing when there is none

  const std::string& dimName() const { return dim.empty() ? name : dim; }
};

// A small data set that the control draws as it is; tests change what they are about. Its variable
// temp has the value 1000 t + 100 k + 10 j + i at step t, level k, row j and column i of the file,
// counted from 0.
struct MadeSet {
  MadeSet();

  MadeAxis time, level, lat, lon;
  std::string order = "tzyx";  // of temp's dimensions
  nc_type type = NC_FLOAT;
  int mode = 0;
  // What is to be made besides, before the values: variables and attributes. Receives temp.
  std::function<void(support::NcMaker& nc, int temp)> more = {};
  // Values of what was made besides.
  std::function<void(support::NcMaker& nc)> moreValues = {};
  // In place of the values above.
  std::function<double(std::size_t t, std::size_t k, std::size_t j, std::size_t i)> value = {};

  void make(const std::string& path) const;
};

inline double plainValue(std::size_t t, std::size_t k, std::size_t j, std::size_t i) {
  return static_cast<double>(1000 * t + 100 * k + 10 * j + i);
}

}  // namespace fit_test
