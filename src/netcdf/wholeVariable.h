#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "netcdf/ncf.h"

// Whole coordinate variables of the open data set. Every function throws (see routine.h).
namespace ocxNetNc {

// The lengths of a variable's dimensions (number from 1) in the file as it is now. Run-time error
// 9 unless it has exactly so many elements, in no more dimensions than a variable may have: the
// library fills the whole shape whatever the room. More than kMostElements is error 7.
std::vector<std::size_t> requireElements(int32_t variable, int64_t count);

// The length of a dimension (identifier from 0).
int32_t dimensionLength(int32_t dimId);

// Reads all values of a variable (number from 1) with requireElements, converted by the library to
// single or double precision; the doubles of the second are stored rounded to single.
void readFloats(int32_t variable, std::span<float> values);
void readDoublesAsFloats(int32_t variable, std::span<float> values);

// Reads all values of a variable (number from 1) of type short, int, float or double in its own
// type. Any other type is a data problem: the message, the variable's name, and the type number
// after typePiece.
void readAxis(int32_t variable, std::span<double> values, const char* message,
              const char* typePiece);

// The message for a variable of a type that cannot be read.
std::string typeMessage(const char* message, const NcVar& variable, const char* typePiece);

}  // namespace ocxNetNc
