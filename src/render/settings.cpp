#include "render/settings.h"

namespace KelvaneMain {

DrawingSettings settings;

void ResetSettings() {
  settings.ShowLegend = 1;
  settings.ShowTitles = 1;
  settings.FlagReserved = 1;
  settings.ShowDistanceAxis = 1;
  settings.ShowDepthAxis = 1;
  settings.ViewStyle = 0;
  settings.ContourLineColor = platform::basicPalette(0);
  settings.ContourLevels = 1;
  settings.ViewMode = kSectionView;
}

}  // namespace KelvaneMain
