#pragma once

#include <netcdf.h>

#include <cstddef>
#include <string>
#include <vector>

#include "targets/support/Input.h"

namespace fuzz {

// A data set as a library tells of it: dimensions and variables are known by their places.
struct Dimension {
  std::string name;
  std::size_t length = 0;
};
struct Attribute {
  std::string name;
  nc_type type = NC_CHAR;
  std::string text;             // of NC_CHAR
  std::vector<double> numbers;  // of any other type
  std::size_t length() const { return type == NC_CHAR ? text.size() : numbers.size(); }
};
struct Variable {
  std::string name;
  nc_type type = NC_FLOAT;
  std::vector<int> dimensions;
  std::vector<Attribute> attributes;
};
struct DataSet {
  std::vector<Dimension> dimensions;
  std::vector<Variable> variables;
  std::vector<Attribute> attributes;
  int unlimited = -1;
};

// Lengths that can be held, and those that nothing can hold.
std::size_t anyLength(Input& input);

// A regular grid of longitudes, latitudes, depths and times that every change starts from.
DataSet regularDataSet();

// Changes something of a data set into what the input says, things that no file holds too.
void changeDataSet(DataSet& set, Input& input);

}  // namespace fuzz
