#pragma once

#include "platform/PictureBox.h"
#include "render/contourField.h"

namespace OcxContr {

// How the contour lines of a field are drawn.
struct ContourStyle {
  float rangeMaximum = 0, rangeMinimum = 0;  // the plotting range
  platform::Colour lineColour = 0;
  // The columns' places in world coordinates. Ends of lines are joined over at most the surface
  // distance of one step in both directions.
  double xOrigin = 0, yOrigin = 0, xStep = 1, yStep = 0;
};

// Draws the field's lines at whole multiples of the interval, through the mapping that is in
// force, and prints the level beside each line of seven points or more. An interval that is not
// smaller than the plotting range is replaced (see ContourLevels). The picture is refreshed
// after every line and its fore colour put back in the end. Run-time errors: 6 for more levels
// than 32767, 9 for arrays smaller than the counts say.
void DrawContourLines(platform::PictureBox& picture, const ContourField& field, float& interval,
                      const ContourStyle& style);

}  // namespace OcxContr
