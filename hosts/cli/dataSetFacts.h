#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "control/KelvaneCtl.h"

namespace cli {

// What the control found in a data set, for listing.
struct DataSetFacts {
  struct Dimension {
    std::string name;
    int32_t length = 0;
    bool unlimited = false;
  };
  // A horizontal coordinate. Without values (count 0) it was recognised but not loaded.
  struct Coordinate {
    std::string variable, units;
    int32_t count = 0;
    float first = 0, last = 0, spacing = 0;
  };
  struct Axis {
    std::string variable, units;
  };
  struct Step {
    double value = 0;
    std::string date;  // or "Season 1", "Month 1"; empty where the units name no such thing
  };
  struct Item {
    std::string name, longName, units;
    std::vector<std::string> dimensions;
  };

  std::string dataSet;      // as it was asked for, but for credentials
  std::string failure;      // why it did not open; empty when it did
  bool recognised = false;  // the coordinates were looked for: the whole header was read
  std::string title;
  std::vector<Dimension> dimensions;
  std::optional<Coordinate> longitude, latitude;
  std::optional<Axis> time, vertical;
  std::optional<std::string> timeOrigin;  // the date that steps count from
  std::vector<Step> steps;
  std::vector<double> levels;
  std::vector<Item> items;
  std::vector<std::string> notes;  // what stands in the way of a section although it opened
};

// Has the control open a data set and lists what it found, also when the opening failed on the way.
DataSetFacts listDataSet(control::KelvaneCtl& control, const std::string& name);

}  // namespace cli
