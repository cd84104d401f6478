#include "render/valueLabels.h"

#include <gtest/gtest.h>

#include "support/RecordingPictureBox.h"

namespace {

using namespace KelvaneMain;
using support::Operation;
using Texts = std::vector<std::string>;

class ValueLabelsTest : public testing::Test {
 protected:
  support::RecordingPictureBox surface{"picSection", 200, 100};  // letters of 6 x 13
  ValueLabels labels;
};

TEST_F(ValueLabelsTest, AreCentredUnderTheirPlaces) {
  labels.print(surface, 80, {{20, "1"}, {60, "10"}, {100, "100"}});
  const auto prints = surface.of(Operation::Kind::Print);
  ASSERT_EQ(prints.size(), 3U);
  EXPECT_EQ(prints[0].x1, 17.0F);
  EXPECT_EQ(prints[1].x1, 54.0F);
  EXPECT_EQ(prints[2].x1, 91.0F);
  for (const Operation& print : prints) EXPECT_EQ(print.y1, 80.0F);
}

TEST_F(ValueLabelsTest, ABlankApartAllArePrinted) {
  labels.print(surface, 80, {{20, "10"}, {38, "20"}, {56, "30"}});
  EXPECT_EQ(surface.texts(), (Texts{"10", "20", "30"}));
}

TEST_F(ValueLabelsTest, CloserOnlyEverySecondOrThirdIs) {
  labels.print(surface, 80, {{20, "10"}, {37, "20"}, {54, "30"}, {71, "40"}, {88, "50"}});
  EXPECT_EQ(surface.texts(), (Texts{"10", "30", "50"}));
  surface.operations.clear();
  ValueLabels().print(surface, 80, {{20, "10"}, {28, "20"}, {36, "30"}, {44, "40"}, {52, "50"}});
  EXPECT_EQ(surface.texts(), (Texts{"10", "40"}));
}

TEST_F(ValueLabelsTest, AllInOnePlaceAreTheFirst) {
  labels.print(surface, 80, {{50, "1"}, {50, "2"}, {50, "3"}});
  EXPECT_EQ(surface.texts(), (Texts{"1"}));
}

TEST_F(ValueLabelsTest, OneThatWouldLeaveThePictureIsLeftOut) {
  labels.print(surface, 80, {{5, "10"}, {6.0F, "11"}});
  EXPECT_TRUE(surface.texts().empty()) << "the first rules the stride";
  labels.print(surface, 80, {{6, "10"}, {194, "20"}});
  EXPECT_EQ(surface.texts(), (Texts{"10", "20"}));
  surface.operations.clear();
  ValueLabels().print(surface, 80, {{100, "10"}, {194.5F, "20"}});
  EXPECT_EQ(surface.texts(), (Texts{"10"}));
}

TEST_F(ValueLabelsTest, OneThatWouldTouchTheGraphBesideIsLeftOut) {
  labels.print(surface, 80, {{20, "1"}, {60, "2000"}});  // ends at 72
  labels.print(surface, 80, {{80, "1"}, {120, "2000"}});
  EXPECT_EQ(surface.texts(), (Texts{"1", "2000", "2000"}));
  labels.print(surface, 80, {{141, "1"}});  // starts a blank behind 132
  EXPECT_EQ(surface.texts(), (Texts{"1", "2000", "2000", "1"}));
}

TEST_F(ValueLabelsTest, NoneIsNone) {
  labels.print(surface, 80, {});
  EXPECT_TRUE(surface.operations.empty());
}

}  // namespace
