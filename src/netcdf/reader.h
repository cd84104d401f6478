#pragma once

#include <cstdint>
#include <vector>

#include "util/OneBased.h"

namespace ocxNetNc {

// The hyperslab of the next read, one entry a dimension of the variable in its own order;
// starts count from 0. Filled by the caller before each nc_get_varas_any.
extern std::vector<int32_t> NcStart;
extern std::vector<int32_t> NcCount;
extern std::vector<int32_t> NcStride;

// Reads the hyperslab of variable nvar_it (from 1) of the data set ncfId into output (made
// 1..tcount), in physical units: raw x Scale + Offset, values at or beyond 0.99 x Missing
// being replaced. tcount must be the product of the counts. Result: the number of values
// accepted, or a value below 0 with the reason in LastError. A char variable reads as 0
// accepted, its output as sized. A scaled value beyond the single range is run-time error 6,
// a variable number or hyperslab that does not fit is error 9, both trapped here.
int32_t nc_get_varas_any(int32_t ncfId, int32_t nvar_it, float replacement,
                         util::OneBased<float>& output, int32_t tcount);

// The rule by which a raw value counts as a value: the threshold is Missing x 0.99.
bool isAccepted(double raw, double threshold);

}  // namespace ocxNetNc
