#pragma once

#include "platform/PictureBox.h"

namespace KelvaneMain {

// Ticks, labels and (for types 1 and 2) the title of the axis along the bottom edge.
// axisLength in km; unitsPerWorld surface units a km.
void DrawDistanceAxis(platform::PictureBox& surface, float axisLeftX, float axisBottomY,
                      float unitsPerWorld, float axisLength, float axisStart);

// Ticks and labels along a vertical edge; they go outwards from the surface's nearer side.
void DrawDepthAxis(platform::PictureBox& surface, float axisX, float axisTopY,
                   float unitsPerMetre, float maxDepth, float depthStart);

}  // namespace KelvaneMain
