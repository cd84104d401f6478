#pragma once

#include <optional>
#include <string>
#include <vector>

#include "diagnosis/headerFacts.h"

namespace cli::diagnosis {

// The axes that the control's identification finds in a header, also in one that the control would
// not have read to its end. Variables and dimensions count from 0; -1: not found.
struct Recognition {
  struct Axis {
    int variable = -1, dimension = -1;
    std::vector<double> values;  // in single precision for longitude and latitude, as the control
                                 // holds them; empty when they cannot be read
  };
  Axis longitude, latitude, time, vertical;
  int cellsI = -1, cellsJ = -1, cellList = -1;
  std::vector<int> items;  // variables that the control lists

  // Longitude and latitude are axes, not places of cells.
  bool isRegular() const { return longitude.dimension >= 0 && latitude.dimension >= 0; }
};

// The variable of an axis that was found.
const Variable& variableOf(const Header& header, const Recognition::Axis& axis);

// Runs the control's own identification over the header. What a missing longitude, latitude or
// cell axis would have kept it from looking for is looked for all the same. The values of the
// axes are read from the open data set. Overwrites the control's catalogue.
Recognition recognise(const Header& header);

// Longitudes as the control holds them: rising across the date line.
std::vector<double> unwrapped(std::vector<double> longitudes);
// The mean spacing of an axis of two values or more, in single precision.
double spacingOf(const std::vector<double>& values);

}  // namespace cli::diagnosis
