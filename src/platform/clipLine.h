#pragma once

#include <cstdint>
#include <optional>

namespace platform {

struct LinePiece {
  double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
};

// The piece of a line that can leave ink on a surface of width x height when it is drawn
// thickness units wide; nothing when it lies outside, or when a coordinate is no finite number. It
// ends at most thickness + 2 units outside: the devices' coordinates are far narrower than single
// precision.
std::optional<LinePiece> clipLine(const LinePiece& line, double width, double height,
                                  double thickness);

}  // namespace platform
