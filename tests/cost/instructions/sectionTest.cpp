// The path and the reading of long sections.
#include <gtest/gtest.h>

#include "Scene.h"
#include "costData.h"
#include "growth.h"
#include "section/drawItems.h"
#include "section/sectionPath.h"
#include "section/sectionValues.h"

namespace cost {
namespace {

class LongSection : public testing::Test {
 protected:
  bench::Scene scene{dataFile("long"), bench::acrossPath(), bench::kWindow};
};

TEST_F(LongSection, IsBuiltInProportionToItsColumns) {
  const double each = costOfEach("EndSection", 2000, 4, [&](int32_t columns) {
    return instructions([&] { scene.useColumns(columns); });
  });
  EXPECT_EQ(KelvaneMain::section.ncols, 8000);
  EXPECT_LE(each, kInProportion);
}

TEST_F(LongSection, IsReadInProportionToItsColumns) {
  const double each = costOfEach("ReadVSData", 5000, 4, [&](int32_t columns) {
    scene.useColumns(columns);
    return instructions([&] { KelvaneMain::ReadVSData(KelvaneMain::VarShown, 1); });
  });
  scene.mustBeWell();
  EXPECT_EQ(scene.columns(), 20'000);
  EXPECT_LE(each, kInProportion);
}

}  // namespace
}  // namespace cost
