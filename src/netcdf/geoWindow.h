#pragma once

#include <cstdint>

namespace ocxNetNc {

// Loads the time axis, the vertical axis and the geographic coordinates of the identified data
// set into ncf, unwraps longitudes across the date line, computes the mean spacings and closes
// the data set. Result 1, or -1 with the reason in LastError.
int32_t SetGeoWindow();

}  // namespace ocxNetNc
