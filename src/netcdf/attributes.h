#pragma once

#include <cstdint>
#include <string>

#include "netcdf/ncf.h"

// The attributes of the open data set as the catalogue keeps them: name, type, value as text.
// Every function throws (see routine.h) what makes the opening fail.
namespace ocxNetNc {

// Reads the attributes of a variable (identifier from 0) into its record, and from them its
// scale, offset, missing value, valid range, unit and long name.
void readAttributes(NcVar& variable, int32_t variableId);

// Reads the global attributes into ncf.
void readGlobalAttributes();

// A name read from the library, at most kNameLimit bytes; a longer one is a data problem, its
// text ending in what was read ("in reading dimension name").
std::string limitedName(const char* name, const char* whenReading);

}  // namespace ocxNetNc
