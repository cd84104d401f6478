#pragma once

#include <cstdint>

#include "platform/PictureBox.h"

namespace KelvaneMain {

// The geometry of the plot, in surface units: recomputed by every frame, the last mapping
// staying valid for later point conversions.
struct PlotGeometry {
  float TopMargin = 0, BottomMargin = 0, LeftMargin = 0, RightMargin = 0;
  float PlotHeightBase = 0;  // y is flipped from here
  // The world rectangle: x in section columns, y in negated metres.
  double WorldX1 = 0, WorldX2 = 0, WorldY1 = 0, WorldY2 = 0;
  double OriginX = 0, OriginY = 0;
  double ScaleX = 0, ScaleY = 0;
  double OffsetX = 0, OffsetY = 0;
};
extern PlotGeometry plot;

struct SurfacePoint {
  float x = 0, y = 0;
};

// The plot area's size as the margins leave it.
struct PlotArea {
  int32_t width = 0, height = 0;
};

// Section type of the frame: 0 by distance, 1 along a constant longitude, 2 along a constant
// latitude (from section_kind).
int32_t sectionType();

// Computes the margins from the surface's current font and PlotHeightBase.
PlotArea SetMargins(const platform::PictureBox& surface);

// Sets up the mapping. 0, or -1 after a message box, the previous mapping left in place; so too
// with run-time error 11 for a world without a width.
int32_t Cartesian(int32_t pwidth, int32_t phight, int32_t xoff, int32_t yoff);

// World to surface coordinates; a point beyond the single range is run-time error 6.
SurfacePoint WorldToSurface(double x, double y);

// Its x before that is stored in a single.
inline double SurfaceX(const PlotGeometry& geometry, double x) {
  return (x - geometry.OriginX) * geometry.ScaleX + geometry.OffsetX;
}

// Tick steps for the magnitude of a range: distance, latitude and longitude axes; depth axis.
float DistanceStep(float range);
float DepthStep(float range);

}  // namespace KelvaneMain
