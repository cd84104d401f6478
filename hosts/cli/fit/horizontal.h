#pragma once

#include <vector>

#include "fit/Draft.h"

// The parts of the rule for longitudes and latitudes.
namespace cli::fit {

// Longitudes and latitudes as axes, with their values in degrees.
struct HorizontalAxis {
  Axis axis;                   // numbers in the plan
  std::vector<double> values;  // in the order of the dimension's indices
};

// Axes out of two-dimensional coordinates that are those of a regular grid: makes variables for
// them. False when they are not.
bool makeAxes(Draft& draft, HorizontalAxis& lon, HorizontalAxis& lat);

// Turned to run upward, cut by the box, named, with the units that the control knows.
void fitLongitudes(Draft& draft, HorizontalAxis lon);
void fitLatitudes(Draft& draft, HorizontalAxis lat);

// Plans to put everything on the grid that was asked for.
void planGrid(Draft& draft);
// A spacing that suits points that are on no regular grid, for advice: "0.25,0.25".
std::string suitableSpacing(const std::vector<double>& lons, const std::vector<double>& lats);

// The longitudes or latitudes of all points of a grid, in degrees; NaN where there is none.
std::vector<double> pointsOf(const Draft& draft, const Placing& placing, int variable);

}  // namespace cli::fit
