#pragma once

#include <cstdint>
#include <vector>

#include "platform/PictureBox.h"
#include "render/axes.h"
#include "render/profileLayout.h"
#include "render/valueLabels.h"
#include "section/drawItems.h"

namespace KelvaneMain {

// A value of a profile with its level's depth, positive metres.
struct ProfilePoint {
  double depth = 0;
  float value = 0;
};

// The values of a column of section_values from level 1 on, without the levels that have none;
// empty for a column that the grid does not have.
std::vector<ProfilePoint> CollectProfile(int32_t column);

// A graph of value against depth. A range of zero has no scale: its ticks and the profiles are
// left out. A point beyond the single range is run-time error 6.
class ProfileGraph {
 public:
  // depthMax: the depth at the lower edge, positive metres.
  ProfileGraph(const GraphArea& area, const DrawItem& item, float depthMax);

  // The rectangle around the graph and both axes, in ForeColor; leaves the font plain.
  void drawFrame(platform::PictureBox& surface, DepthLabels depthLabels,
                 ValueLabels& valueLabels) const;
  // Straight lines between neighbouring points, in ForeColor and two units wide. Points outside
  // the ranges are drawn where they fall.
  void drawProfile(platform::PictureBox& surface, const std::vector<ProfilePoint>& profile) const;

 private:
  void drawValueAxis(platform::PictureBox& surface, ValueLabels& labels) const;
  float xOf(float value) const;
  float yOf(double depth) const;

  GraphArea area_;
  const DrawItem& item_;
  float depthMax_;
  bool hasValueRange_, hasDepthRange_;
  float unitsPerValue_ = 0, unitsPerMetre_ = 0;
};

}  // namespace KelvaneMain
