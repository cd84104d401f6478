#pragma once

#include <string>

namespace support {

// The small exact data set of the whole-pipeline tests, made at path in a format as NcMaker takes
// it. Dimensions time 2 (unlimited), depth 3, lat 4, lon 6; temp is a packed short, raw(t, k, j, i)
// = 900 - 350 k + 37 i - 20 j + 55 t counted from 1, fill -32768 where k = 3 and i >= 5; salt a
// float, 34 + 0.25 k + 0.125 i - 0.0625 j, missing (1e20) where j = 1; zeta(time, lat, lon) is flat.
void makeTinySet(const std::string& path, int mode = 0);

// All module state as it is when the control library is loaded: what kept room for its contents gives
// it back.
void resetState();

}  // namespace support
