#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "optionText.h"

namespace cli::fit {

enum class Method { Nearest, Bilinear };

// A part of the earth, degrees; from west eastward to east.
struct Box {
  double west = 0, south = 0, east = 0, north = 0;
};

// The spacing of a regular grid, degrees.
struct Spacing {
  double lon = 0, lat = 0;
};

struct Selected {
  std::string dimension;
  std::size_t index = 1;  // counted from 1
};

// What is asked of `kelvane fit`.
struct Request {
  std::string input, output;
  std::string group;                   // of netCDF-4; empty: what is outside of groups
  std::vector<std::string> variables;  // empty: all
  std::optional<StepRange> steps;
  std::optional<Box> box;
  std::vector<Selected> selected;
  std::optional<Spacing> grid;
  Method method = Method::Nearest;
  std::string commandText;  // for the history of the copy
};

// The readers of the options. Nothing for a text that is none.
// "W,S,E,N": latitudes -90..90 and S below N, longitudes -360..720 and W below E or 360 more.
std::optional<Box> readBox(std::string_view text);
// "DX,DY" or "D" for both: above 0, at most 90.
std::optional<Spacing> readSpacing(std::string_view text);
// "name=index".
std::optional<Selected> readSelected(std::string_view text);
// "nearest" or "bilinear".
std::optional<Method> readMethod(std::string_view text);
// "a,b,c", none of them empty.
std::optional<std::vector<std::string>> readNames(std::string_view text);

}  // namespace cli::fit
