#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Ticks of the axis below a section along a constant longitude (it shows latitude) or along a
// constant latitude (it shows longitude). All read the current section and its grid.
namespace KelvaneMain {

enum class DegreeAxis { Latitude, Longitude };

// The axis of a frame of section type 1 (latitude) or 2 (longitude).
DegreeAxis degreeAxis(int32_t sectionType);

struct DegreeTick {
  float value = 0;      // degrees
  double fraction = 0;  // place between the axis ends, 0..1
};

// Ticks at round degrees from the first column's coordinate on, at most one a label slot.
std::vector<DegreeTick> degreeTicks(DegreeAxis axis, double slots);

// Magnitude, with two decimals when it has a fractional part, and hemisphere letter. The sign
// alone decides the hemisphere: 350 is "350E", 0 is "0N" or "0E".
std::string degreeText(DegreeAxis axis, float degrees);

// "Latitude (deg) Along Constant Longitude= " or the other, with the constant coordinate.
std::string degreeAxisTitle(DegreeAxis axis);

}  // namespace KelvaneMain
