#pragma once

#include <netcdf.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// The header of a data set without the control's limits: as it is read, and as it is to be written.
namespace cli {

// An attribute: a text (NC_CHAR; NC_STRING for strings, with commas between several) or numbers,
// whatever their type. Neither of a type that users made, or when it is too long to hold.
struct Attribute {
  std::string name;
  nc_type type = NC_CHAR;
  std::string text;
  std::vector<double> numbers;
  bool tooLong = false;

  bool isText() const { return type == NC_CHAR || type == NC_STRING; }
};

using Attributes = std::vector<Attribute>;

const Attribute* find(const Attributes& attributes, std::string_view name);
// The text of an attribute; empty when there is none or it is of numbers.
std::string textOf(const Attributes& attributes, std::string_view name);
// The first number of an attribute, or what stands for none.
double numberOf(const Attributes& attributes, std::string_view name, double otherwise);
// Puts an attribute in the place of one of its name, or behind all others.
void set(Attributes& attributes, Attribute attribute);
void setText(Attributes& attributes, const std::string& name, const std::string& text);
void remove(Attributes& attributes, std::string_view name);

struct Dimension {
  std::string name;
  std::size_t length = 0;
  bool unlimited = false;
  int id = -1;  // the library's number
};

struct Variable {
  std::string name;
  nc_type type = NC_FLOAT;
  std::vector<int> dims;  // places in Header::dims
  Attributes attributes;
  // Of strings: shown as characters (NC_CHAR) with a last dimension as wide as the longest.
  bool ofStrings = false;
  int group = -1, id = -1;  // the library's numbers
};

// A group that holds variables.
struct Group {
  std::string path;  // "/forecast/surface"
  int variables = 0;
};

struct Header {
  int format = 0;  // NC_FORMAT_CLASSIC and so on
  std::vector<Dimension> dims;
  std::vector<Variable> vars;
  Attributes globals;
  std::vector<Group> groups;  // all below the one that was read

  // The place of a variable or dimension; -1 when there is none of that name.
  int variable(std::string_view name) const;
  int dimension(std::string_view name) const;
};

// Whole numbers, of any width.
bool isWhole(nc_type type);
// "float", "int64", "string"; "type 35" for one that a user of the library has made.
std::string typeName(nc_type type);

}  // namespace cli
