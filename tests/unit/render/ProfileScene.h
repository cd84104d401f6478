#pragma once

#include <string>
#include <vector>

#include "HeldSection.h"

namespace render_tests {

// The held section with path points on some of its columns, drawn as profiles. A point's label
// is its place: "P1", "P2", ..
class ProfileScene : public HeldSection {
 protected:
  void SetUp() override;
  // The columns of the path's points; 0 for a point without one.
  void points(const std::vector<int32_t>& columns);
  void draw();
  void resize(int32_t width, int32_t height);

  // What was done to a surface, one text an operation: "line 42 52 588 52 width 1 colour 0",
  // "print 492 6.5 bold [Data Set: tiny.nc]", "and picDateTime", ..
  static std::vector<std::string> script(const support::RecordingPictureBox& box);
  // The lines of width two on the drawing surface.
  std::vector<support::Operation> profileLines() const;
};

}  // namespace render_tests
