#include <netcdf.h>

#include <algorithm>
#include <cmath>

#include "diagnosis/checkList.h"
#include "util/numberText.h"

namespace cli::diagnosis {
namespace {

std::string number(double value) { return util::generalText(static_cast<float>(value)); }

const std::string& nameOf(const SetHeader& header, const Recognition::Axis& axis) {
  return header.variables[static_cast<std::size_t>(axis.variable)].name;
}

// Cells are found by the mean spacing: how far, in cells, it leads away from where they are.
double worstShift(const std::vector<double>& values) {
  const double spacing = spacingOf(values);
  double worst = 0;
  for (std::size_t at = 0; at < values.size(); ++at) {
    const double even = values.front() + spacing * static_cast<double>(at);
    worst = std::max(worst, std::fabs(values[at] - even) / std::fabs(spacing));
  }
  return worst;
}

void warnOfSpacing(const std::string& name, const std::vector<double>& values,
                   std::vector<Warning>& warnings) {
  constexpr double halfCell = 0.5;
  const double shift = worstShift(values);
  if (!(shift > halfCell)) return;
  warn(warnings, "uneven-spacing", name,
       "it is not evenly spaced: cells are found by the mean spacing, and values are drawn up to " +
           std::to_string(std::lround(shift)) + (std::lround(shift) == 1 ? " cell" : " cells") +
           " away from their place");
}

void warnOfLongitudes(const std::string& name, const std::vector<double>& stored,
                      std::vector<Warning>& warnings) {
  constexpr double halfCircle = 180;
  const auto falls =
      std::ranges::count_if(stored, [&, before = stored.front()](double value) mutable {
        const bool fell = value < before;
        before = value;
        return fell;
      });
  if (falls > 1) {
    warn(warnings, "longitudes-backward", name,
         "it falls " + std::to_string(falls) +
             " times, and each fall is taken for the date line: values are drawn far away from "
             "their place");
    return;
  }
  const std::vector<double> values = unwrapped(stored);
  if (values.back() > halfCircle) {
    const double example = std::max(values.front(), halfCircle) +
                           (values.back() - std::max(values.front(), halfCircle)) / 2;
    const double rounded = std::round(example);
    const double west = 360 - rounded;
    warn(warnings, "longitudes-beyond-180", name,
         "it runs from " + number(values.front()) + " to " + number(values.back()) +
             ", and a path has to give such longitudes: " +
             (west > 0 ? number(west) + " W is " : number(-west) + " E is ") + number(rounded));
  }
  warnOfSpacing(name, values, warnings);
}

}  // namespace

void warnOfGrid(const SetHeader& header, const Recognition& found, std::vector<Warning>& warnings) {
  const auto told = [](const Recognition::Axis& axis) {
    return axis.dimension >= 0 && axis.values.size() > 1;
  };
  if (told(found.longitude)) {
    warnOfLongitudes(nameOf(header, found.longitude), found.longitude.values, warnings);
  }
  if (told(found.latitude)) {
    warnOfSpacing(nameOf(header, found.latitude), found.latitude.values, warnings);
  }
}

void warnOfSet(const SetHeader& header, const Recognition&, std::vector<Warning>& warnings) {
  if (header.format == NC_FORMAT_CDF5) {
    warn(warnings, "cdf5", "", "it is a CDF-5 file, which only 64-bit programs read");
  }
  if (header.groups > 0) {
    warn(warnings, "groups", "",
         counted(static_cast<std::size_t>(header.groups), "group") + " with " +
             counted(static_cast<std::size_t>(header.groupVariables), "variable") +
             " are not looked into: only what lies outside of groups is seen");
  }
}

}  // namespace cli::diagnosis
