#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "header/header.h"

// What a copy is to be like, and where its values come from.
namespace cli::fit {

struct PlanDim {
  std::string name;
  bool unlimited = false;
  bool gone = false;  // one index was picked: the copy's variables do not have it
  // Which indices of the input's dimension of the same number, in the copy's order. Dimensions
  // behind the input's are new ones; for them only the length counts.
  std::vector<std::size_t> index;

  std::size_t length() const { return index.size(); }
};

struct PlanVar {
  int source = -1;  // number in the input; below 0 when values holds everything
  std::string name;
  nc_type type = NC_FLOAT;
  std::vector<int> dims;  // numbers in Plan::dims, in the copy's order
  Attributes attributes;
  std::optional<std::vector<double>> values;  // made here and not read
  std::vector<double> missing;                // numbers that stand for no value in the input
  std::optional<double> fill;  // what all of them, and NaN, become; nothing: they stay
  double wrap = 0;             // what is added to numbers below 0, which are without sign
  bool unpacked = false;       // scale and offset are worked into the values
  double scale = 1, offset = 0;
  int grid = -1;       // put on the new grid by this entry of Plan::regriddings
  bool drawn = false;  // the control is expected to draw it
  bool gone = false;   // not in the copy

  bool isNumeric() const { return type != NC_CHAR; }
  // Puts a dimension in front of all others.
  void putFirst(int dim);
};

// From the horizontal dimensions of the input (one or two) onto the plan's last two.
struct Regridding {
  std::vector<int> dims;           // numbers in the input
  std::vector<double> lons, lats;  // of all points, degrees; NaN where there is none
};

struct Plan {
  std::vector<PlanDim> dims;
  std::vector<PlanVar> vars;
  Attributes globals;
  std::vector<Regridding> regriddings;
  std::vector<double> gridLons, gridLats;
  // "NAME: what (why)".
  std::vector<std::string> changes;
  std::vector<std::string> notes;  // what the user should know besides

  // A variable that is not left out; nullptr when there is none of that name.
  PlanVar* variable(std::string_view name);
};

}  // namespace cli::fit
