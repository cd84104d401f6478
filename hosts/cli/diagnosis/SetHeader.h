#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace cli::diagnosis {

// The header of a data set as the netCDF library gives it, without the control's limits. Texts are
// UTF-8.
struct SetHeader {
  struct Attribute {
    std::string name;
    int type = 0;            // the library's number
    std::size_t length = 0;  // elements
    std::string text;        // numbers in their shortest form, two blanks between them
  };
  struct Dimension {
    std::string name;
    std::size_t length = 0;
    bool unlimited = false;
  };
  struct Variable {
    std::string name;
    int type = 0;
    std::vector<int> dimensions;  // identifiers, from 0, each that of an entry below
    std::vector<Attribute> attributes;

    // The value of the attribute of exactly that name; empty when there is none.
    std::string attribute(std::string_view wanted) const;
    // The last attribute whose name begins with the keyword (in capitals), which is the one that
    // the control goes by; null when there is none.
    const Attribute* keyword(std::string_view wanted) const;
    bool has(int dimension) const;
  };

  int format = 0;  // NC_FORMAT_CLASSIC and so on
  std::vector<Dimension> dimensions;
  std::vector<Variable> variables;
  std::vector<Attribute> attributes;  // of the data set
  int groups = 0;                     // netCDF-4 groups below the root, and what they hold
  int groupVariables = 0;

  // "(time, depth, lat, lon)"
  std::string shapeOf(const Variable& variable) const;
  // The product of the lengths of a variable's dimensions.
  double elementsOf(const Variable& variable) const;
};

// Reads the header of the open data set. Throws Failure with the library's text.
SetHeader readHeader(int ncid);

// All values of a variable (identifier from 0) of the open data set as doubles, without scaling.
// Empty when there are more than a coordinate has, or when they are no numbers or cannot be read.
std::vector<double> readCoordinate(int ncid, const SetHeader& header, int variable);

// "float", "int64", "string"; "type 35" for one that the user of the library has made.
std::string typeName(int type);

// "classic", "64-bit offset", "CDF-5", "netCDF-4", "netCDF-4 classic model"
std::string formatName(int format);

}  // namespace cli::diagnosis
