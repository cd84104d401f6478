#pragma once

#include <cstdint>
#include <vector>

#include "netcdf/ncf.h"

// Whole coordinate variables of the open data set. Every function throws (see routine.h).
namespace ocxNetNc {

// Run-time error 9 unless the variable (number from 1) has exactly so many elements in the file
// as it is now: the library fills the whole shape whatever the room. More than kMostElements is
// error 7.
void requireElements(int32_t variable, int64_t count);

// The length of a dimension (identifier from 0).
int32_t dimensionLength(int32_t dimId);

// All values of a variable (number from 1) of type short, int, float or double, read in its own
// type. Any other type is a data problem: the message, the variable's name, and the type number
// after typePiece.
std::vector<double> readAxis(int32_t variable, int64_t count, const char* message,
                             const char* typePiece);

// The message for a variable of a type that cannot be read.
std::string typeMessage(const char* message, const NcVar& variable, const char* typePiece);

}  // namespace ocxNetNc
