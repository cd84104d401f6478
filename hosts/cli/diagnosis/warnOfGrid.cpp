#include <netcdf.h>

#include <algorithm>
#include <cmath>

#include "diagnosis/checkList.h"
#include "nameList.h"
#include "util/numberText.h"

namespace cli::diagnosis {
namespace {

std::string number(double value) { return util::generalText(static_cast<float>(value)); }

const std::string& nameOf(const Header& header, const Recognition::Axis& axis) {
  return variableOf(header, axis).name;
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
           " away from their place",
       Cure::Copy);
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
             "their place",
         Cure::Copy);
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

void warnOfGrid(const Header& header, const Recognition& found, std::vector<Warning>& warnings) {
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

void warnOfSet(const Header& header, const Recognition&, std::vector<Warning>& warnings) {
  if (header.format == NC_FORMAT_CDF5) {
    warn(warnings, "cdf5", "", "it is a CDF-5 file, which only 64-bit programs read");
  }
  if (!header.groups.empty()) {
    std::vector<std::string> groups;
    for (const Group& group : header.groups) {
      groups.push_back(quoted(group.path) + " (" +
                       counted(static_cast<std::size_t>(group.variables), "variable") + ")");
    }
    warn(warnings, "groups", "",
         "the control sees nothing of what lies in groups: " + nameList(groups) +
             "; kelvane fit --group makes a copy of one");
  }
}

}  // namespace cli::diagnosis
