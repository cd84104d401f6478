#pragma once

#include <span>
#include <vector>

#include "render/contourScreen.h"

namespace render_tests {

using Polylines = std::vector<std::vector<OcxContr::PieceEnd>>;

// Joins pieces by a search through the whole list at every step, without any index: slow, and
// plain enough to be read as the definition of what joining gives.
Polylines plainJoin(std::span<const OcxContr::ScreenPiece> pieces, double tolerance);

}  // namespace render_tests
