#pragma once

#include <set>
#include <string>
#include <vector>

#include "fit/Axes.h"
#include "fit/Input.h"
#include "fit/Plan.h"
#include "fit/Request.h"

namespace cli::fit {

// A plan in the making. The rules work on it one after another; the plan's first dimensions and
// variables are those of the input, under the same numbers.
struct Draft {
  Draft(const Input& input, const Request& asked);

  const Variable& inVar(int number) const {
    return in.header().vars[static_cast<std::size_t>(number)];
  }
  const Dimension& inDim(int number) const {
    return in.header().dims[static_cast<std::size_t>(number)];
  }
  PlanVar& var(int number) { return plan.vars[static_cast<std::size_t>(number)]; }
  PlanDim& dim(int number) { return plan.dims[static_cast<std::size_t>(number)]; }
  const PlanDim& dim(int number) const { return plan.dims[static_cast<std::size_t>(number)]; }
  const Placing& placing(int number) const { return placings[static_cast<std::size_t>(number)]; }

  // Adds a dimension or a variable to the plan; the result is its number.
  int addDim(const std::string& name, std::size_t length);
  int addVar(PlanVar variable);
  // A name that no dimension and no variable of the plan has: the wanted one if it is free.
  std::string freeName(const std::string& wanted) const;
  // A new name for a variable, for the dimension of its values as well, and in what refers to it.
  void rename(int variable, const std::string& name);
  // Leaves a variable out of the copy.
  void leaveOut(int variable);
  // Leaves out the variable of an axis' bounds, and its attributes of ranges: they would no longer
  // be true.
  void leaveOutBounds(int variable);

  void change(const std::string& name, const std::string& what, const std::string& why);
  void note(const std::string& text) { plan.notes.push_back(text); }

  // "temp(time, lev, lat, lon)" with the names of the input.
  std::string described(int variable) const;
  // The values of an input's variable of one dimension, scale and offset worked in, for the
  // indices that the plan keeps. Throws Failure for values that are no numbers.
  std::vector<double> axisValues(const Axis& axis) const;

  const Input& in;
  const Request& request;
  Plan plan;
  std::vector<Placing> placings;  // of the input's variables
  Placing main;                   // that of the variables that are drawn
  // Numbers in the plan of the axes' dimensions and variables, once their rules are through.
  Axis lon, lat, level, time;
  // The input's variables of which the control would misread values as they are.
  std::set<int> refilled;
};

}  // namespace cli::fit
