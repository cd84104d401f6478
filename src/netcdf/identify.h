#pragma once

#include <cstdint>

namespace ocxNetNc {

// Recognises the coordinate axes of ncf by name, units and shape. 1 when both a longitude and a
// latitude variable are known; -1 when a search found no longitude or latitude variable, -3
// when a cell grid has no i axis, -4 when one of the two is still unknown at the end. Writes no
// message.
int32_t IdentifyCoordinates();

// Order of the horizontal dimensions of variable var (from 1): 1 longitude then latitude, 2
// latitude then longitude, 0 a list of cells, -1 neither.
int32_t GridOrder(int32_t var);

}  // namespace ocxNetNc
