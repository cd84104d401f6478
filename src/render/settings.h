#pragma once

#include <cstdint>

#include "platform/PictureBox.h"

namespace KelvaneMain {

inline constexpr int32_t kProfileView = 1;
inline constexpr int32_t kSectionView = 2;

// The drawing settings. All are 0 until the first data set is opened, which sets the defaults.
struct DrawingSettings {
  int32_t ShowLegend = 0;    // drawn only when exactly 1
  int32_t ShowTitles = 0;    // printed when not 0
  int32_t FlagReserved = 0;  // nothing reads it
  int32_t ShowDistanceAxis = 0;
  int32_t ShowDepthAxis = 0;
  int32_t ViewStyle = 0;  // 0 without contour lines, 1 with them
  platform::Colour ContourLineColor = 0;
  int32_t ContourLevels = 0;
  int32_t ViewMode = 0;      // kProfileView or kSectionView; any other draws nothing
  int32_t ProfileStyle = 0;  // 1 all profiles in one graph, 0 separate graphs
};
extern DrawingSettings settings;

// What every successful opening sets. ProfileStyle is left as it is.
void ResetSettings();

}  // namespace KelvaneMain
