#pragma once

#include <optional>
#include <string>
#include <vector>

#include "fit/Input.h"
#include "fit/roles.h"

// Which dimensions and variables are the axes of a data set.
namespace cli::fit {

// A dimension of the input and the variable of its values; below 0 when there is none.
struct Axis {
  int dim = -1, var = -1;
  bool found() const { return dim >= 0; }
  bool operator==(const Axis&) const = default;
};

enum class GridKind {
  None,
  Axes,         // longitude and latitude are axes: a dimension each
  Curvilinear,  // two dimensions, on which both are given
  Cells         // one dimension, on which both are given
};

// How a variable lies in the world.
struct Placing {
  GridKind kind = GridKind::None;
  Axis lon, lat;            // with Curvilinear and Cells only the variables are set
  std::vector<int> places;  // its horizontal dimensions, in the order of the input
  Axis level, time;

  bool sameGrid(const Placing& other) const {
    return kind == other.kind && places == other.places && lon == other.lon && lat == other.lat;
  }
};

// The placing of a variable, as far as it can be told.
Placing placingOf(const Input& input, int variable);

}  // namespace cli::fit
