#pragma once

#include <string>
#include <vector>

#include "platform/PictureBox.h"

namespace KelvaneMain {

// A label to be centred at x.
struct CentredLabel {
  float x = 0;
  std::string text;
};

// The value labels under a row of graphs. They stay a blank apart, also from those of the graph
// beside, and inside the picture: where they are too close only every second, third, .. one of
// a graph is printed, and one that would still touch its neighbour or leave the picture is left
// out.
class ValueLabels {
 public:
  // Prints the labels of the next graph to the right, their tops at y.
  void print(platform::PictureBox& surface, float y, const std::vector<CentredLabel>& labels);

 private:
  bool any_ = false;
  double end_ = 0;  // right end of the last printed label
};

}  // namespace KelvaneMain
