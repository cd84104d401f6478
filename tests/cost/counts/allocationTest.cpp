// How often our own code asks for memory: the same for few cells and for many, but for lists that
// grow, now and then.
#include <gtest/gtest.h>

#include <functional>

#include "Scene.h"
#include "allocations.h"
#include "costData.h"
#include "render/settings.h"
#include "section/drawItems.h"
#include "section/sectionValues.h"

namespace cost {
namespace {

class Allocations : public testing::Test {
 protected:
  // What some work on a section of so many columns asks for.
  int64_t of(int32_t columns, const std::function<void()>& work) {
    scene.useColumns(columns);
    scene.control().Draw();
    work();
    const int64_t before = bench::allocations();
    work();
    scene.mustBeWell();
    EXPECT_EQ(scene.columns(), columns);
    return bench::allocations() - before;
  }
  void expectNoneEach(const std::function<void()>& work) {
    const int64_t few = of(100, work), many = of(16'000, work);
    RecordProperty("few", static_cast<int>(few));
    RecordProperty("many", static_cast<int>(many));
    EXPECT_GT(few, 0);
    EXPECT_LE(many, few + kGrowingLists);
  }

  static constexpr int64_t kGrowingLists = 32;
  bench::Scene scene{dataFile("long"), bench::acrossPath(), bench::kWindow};
};

TEST_F(Allocations, OfReadingAreNoneForACell) {
  expectNoneEach([] { KelvaneMain::ReadVSData(KelvaneMain::VarShown, 1); });
}

TEST_F(Allocations, OfDrawingAreNoneForACell) {
  expectNoneEach([&] { scene.control().ReDraw(); });
}

TEST_F(Allocations, OfAFrameAreNoneForACell) {
  expectNoneEach([&] { scene.control().AdvanceTime(1); });
}

TEST_F(Allocations, OfDrawingThroughAKeyAreNoneForACell) {
  expectNoneEach([&] {
    scene.useKey(100);
    scene.control().ReDraw();
  });
}

}  // namespace
}  // namespace cost
