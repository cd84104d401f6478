#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "HeldSection.h"
#include "colorkey/colorKey.h"
#include "platform/PixelRows.h"
#include "render/contourJoin.h"
#include "render/drawVSection.h"
#include "section/sectionValues.h"

// What a drawing costs, told by counts that are the same on every machine.
namespace {

std::size_t allocations = 0;

}  // namespace

void* operator new(std::size_t size) {
  ++allocations;
  if (void* const block = std::malloc(size == 0 ? 1 : size)) return block;
  throw std::bad_alloc();
}
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }

namespace {

using namespace KelvaneMain;

// A recording box with pixels below, for the cells alone.
class PixelledBox : public support::RecordingPictureBox {
 public:
  PixelledBox() : RecordingPictureBox("pixels", 640, 400), memory_(640 * 400) {}
  void Cells(const platform::CellBoxes& cells) override {
    const std::size_t before = allocations;
    ASSERT_TRUE(rows_.paint(cells));
    spent = allocations - before;
  }
  std::size_t spent = 0;

 private:
  std::vector<uint32_t> memory_;
  platform::PixelRows rows_{memory_.data(), 640, 640, 400};
};

class DrawingCost : public render_tests::HeldSection {
 protected:
  std::size_t allocationsFor(int32_t columns, int32_t levels) {
    std::vector<double> depths;
    for (int32_t k = 0; k < levels; ++k) depths.push_back(10.0 * k);
    holdGrid(columns, depths);
    PixelledBox box;
    platform::Pictures drawn{boxes.Picture1, boxes.picDateTime, box, boxes.picContours};
    DrawVSection(drawn);
    return box.spent;
  }
};

TEST_F(DrawingCost, OfCellsIsNoAllocationEach) {
  const std::size_t few = allocationsFor(200, 20);
  const std::size_t many = allocationsFor(8000, 200);
  EXPECT_GT(few, 0U);
  EXPECT_LT(many, few + 64);  // lists that grow, and not by the cell
}

TEST_F(DrawingCost, OfJoiningAnotherLevelIsNoAllocation) {
  std::vector<OcxContr::ScreenPiece> pieces;
  for (int n = 0; n < 5000; ++n) {
    const auto x = static_cast<float>(n);
    pieces.push_back({x, 1, x + 1, 1});
  }
  OcxContr::PieceJoiner joiner;
  std::size_t points = 0;
  const OcxContr::PieceJoiner::TakePolyline take = [&](auto line) { points += line.size(); };
  joiner.join(pieces, 2.0, take);
  const std::size_t before = allocations;
  joiner.join(pieces, 2.0, take);
  EXPECT_EQ(allocations, before);
  EXPECT_EQ(points, 2U * 5001U);
}

}  // namespace
