#pragma once

#include "platform/PictureBox.h"

namespace KelvaneMain {

// Both axes letter in bold and leave the font plain. A range that is not above 0 has no ticks;
// a tick value beyond the single range, or a tick beyond the 32767th, is run-time error 6.

// Ticks, labels and (for types 1 and 2) the title of the axis along the bottom edge.
// axisLength in km; unitsPerWorld surface units a km. A path cell that the open data set does
// not have is run-time error 9.
void DrawDistanceAxis(platform::PictureBox& surface, float axisLeftX, float axisBottomY,
                      float unitsPerWorld, float axisLength, float axisStart);

// Whether the depths are printed at their ticks; side by side, graphs share the first one's.
enum class DepthLabels { Printed, LeftOut };

// Ticks and labels along a vertical edge; they go outwards from the surface's nearer side.
void DrawDepthAxis(platform::PictureBox& surface, float axisX, float axisTopY, float unitsPerMetre,
                   float maxDepth, float depthStart,
                   DepthLabels labels = DepthLabels::Printed);

}  // namespace KelvaneMain
