#pragma once

#include <netcdf.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "support/NcMaker.h"

namespace diagnosis_test {

// A small data set that the control draws, described so that a test can spoil one thing of it.
struct MadeSet {
  int mode = 0;  // of the file
  std::string lonName = "lon", latName = "lat", timeName = "time", levelName = "depth";
  std::string lonUnits = "degrees_east", latUnits = "degrees_north";
  std::string timeUnits = "days since 2000-01-01", levelUnits = "m";
  nc_type lonType = NC_DOUBLE, timeType = NC_DOUBLE, levelType = NC_FLOAT, itemType = NC_FLOAT;
  std::vector<double> lons = {10, 11, 12, 13, 14, 15}, lats = {40, 41, 42, 43};
  std::vector<double> times = {0, 1}, levels = {0, 50, 200};
  // The order of the item's dimensions: t, z, y, x, and w for one more of two values.
  std::string order = "tzyx";
  bool unlimitedTime = false;
  // Whatever else is to be in it, before the values.
  std::function<void(support::NcMaker&, int item)> more = {};

  void make(const std::string& path) const;
};

}  // namespace diagnosis_test
