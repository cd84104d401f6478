#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "header/header.h"

// What the checks ask of a header. Dimensions and variables count from 0.
namespace cli::diagnosis {

// Reads the header of the open data set, with all texts in UTF-8. Throws Failure with the library's
// text.
Header readShownHeader(int ncid);

// The last attribute whose name begins with the keyword (in capitals), which is the one that the
// control goes by; null when there is none.
const Attribute* keyword(const Variable& variable, std::string_view wanted);
// Its value in words; empty when there is none.
std::string keywordText(const Variable& variable, std::string_view wanted);
// The value of an attribute: numbers in their shortest form, two blanks between them.
std::string valueText(const Attribute& attribute);

// A dimension by its place.
const Dimension& dimensionOf(const Header& header, int dimension);
bool has(const Variable& variable, int dimension);
// "(time, depth, lat, lon)"
std::string shapeOf(const Header& header, const Variable& variable);
// The product of the lengths of a variable's dimensions.
double elementsOf(const Header& header, const Variable& variable);

// All values of a variable of the open data set as doubles, without scaling. Empty when there are
// more than a coordinate has, or when they are no numbers or cannot be read.
std::vector<double> readCoordinate(const Header& header, int variable);

// "classic", "64-bit offset", "CDF-5", "netCDF-4", "netCDF-4 classic model"
std::string formatName(int format);

}  // namespace cli::diagnosis
