#pragma once

#include <cstdint>

#include "platform/PictureBox.h"

namespace KelvaneMain {

// The side of a graph on which its depth labels stand.
enum class LabelSide : int32_t { Left = -1, None = 0, Right = 1 };

// Where a graph is, in surface units.
struct GraphArea {
  float x = 0, y = 0;  // top left
  float width = 0, height = 0;
};

// Rows and columns of equally large graphs with gaps of a twentieth of the free room.
struct GraphLayout {
  float left = 0, top = 0;      // of the first graph
  float width = 0, height = 0;  // of every graph; below 0 where the gaps take all the room
  float gapX = 0, gapY = 0;

  // Whether every graph has at least one unit each way.
  bool hasRoom() const { return width >= 1.0F && height >= 1.0F; }

  // Row and column are counted from 1.
  GraphArea area(int32_t row, int32_t column) const;
};

// Lays out the graphs and sets the plot margins, from the surface's current font.
GraphLayout LayoutGraphs(const platform::PictureBox& surface, int32_t rows, int32_t columns,
                         LabelSide side);

}  // namespace KelvaneMain
