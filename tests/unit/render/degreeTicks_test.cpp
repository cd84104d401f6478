#include "render/degreeTicks.h"

#include <limits>

#include "HeldSection.h"
#include "netcdf/ncf.h"
#include "section/sectionPath.h"
#include "util/RuntimeError.h"

namespace {

using namespace KelvaneMain;

class DegreeTicksTest : public render_tests::HeldSection {
 protected:
  // A latitude row of ncols columns from the given longitude on.
  void row(float first, float spacing, int32_t ncols) {
    alongLatitude(ncols);
    ocxNetNc::ncf.lon_values.assign(400, first);
    ocxNetNc::ncf.dlon = spacing;
  }
  std::vector<float> values(double slots) {
    std::vector<float> found;
    for (const DegreeTick& tick : degreeTicks(DegreeAxis::Longitude, slots)) {
      found.push_back(tick.value);
    }
    return found;
  }
};

using Values = std::vector<float>;

TEST_F(DegreeTicksTest, TicksAreMultiplesOfTheStepBetweenTheEdges) {
  row(-179.5F, 1, 360);
  EXPECT_EQ(values(20), (Values{-160, -140, -120, -100, -80, -60, -40, -20, 0, 20, 40, 60, 80, 100,
                                120, 140, 160, 180}));
}

TEST_F(DegreeTicksTest, TheStepDoublesUntilThereIsASlotForEveryTick) {
  row(-179.5F, 1, 360);
  EXPECT_EQ(values(17.9), (Values{-160, -120, -80, -40, 0, 40, 80, 120, 160}));
  EXPECT_EQ(values(8.99), (Values{-160, -80, 0, 80, 160}));
  EXPECT_EQ(values(1), (Values{0}));
}

TEST_F(DegreeTicksTest, WithoutASlotThereIsNoTick) {
  row(0, 1, 10);
  for (const double slots : {0.99, 0.0, -3.0, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_TRUE(values(slots).empty()) << slots;
  }
  EXPECT_FALSE(values(std::numeric_limits<double>::infinity()).empty());
}

TEST_F(DegreeTicksTest, ATickOnAnEdgeSurvivesTheSinglePrecisionOfTheStep) {
  row(0, 0.1F, 9);  // 0 to 0.9 in steps of 0.02
  const Values found = values(100);
  ASSERT_EQ(found.size(), 46U);
  EXPECT_EQ(found.front(), 0.0F);
  EXPECT_FLOAT_EQ(found.back(), 0.9F);
}

TEST_F(DegreeTicksTest, NoTickStandsBeyondTheAxisOnAVeryFineGrid) {
  row(338.1421F, 0.0002F, 2);
  for (const DegreeTick& tick : degreeTicks(DegreeAxis::Longitude, 100)) {
    EXPECT_GE(tick.fraction, -1e-6);
    EXPECT_LE(tick.fraction, 1 + 1e-6);
  }
}

TEST_F(DegreeTicksTest, TheAxisIsAsWideAsTheHeldBlocks) {
  row(0, 1, 10);
  section.ncols = 2;  // a new path that has not been read
  EXPECT_EQ(values(8), (Values{0, 5, 10}));
}

TEST_F(DegreeTicksTest, TheFirstColumnSetsTheLeftEdge) {
  row(100, 2, 5);
  for (Cell& cell : section.column_cells) cell.i += 10;
  const auto ticks = degreeTicks(DegreeAxis::Longitude, 8);  // 120 to 130
  ASSERT_EQ(ticks.size(), 3U);
  EXPECT_EQ(ticks[0].value, 120.0F);
  EXPECT_EQ(ticks[1].value, 125.0F);
  EXPECT_EQ(ticks[0].fraction, 0.0);
  EXPECT_EQ(ticks[1].fraction, 0.5);
  EXPECT_EQ(ticks[2].fraction, 1.0);
}

TEST_F(DegreeTicksTest, AGridWithoutSpacingHasNoTicks) {
  row(5, 0, 5);
  EXPECT_TRUE(values(8).empty());
  row(5, std::numeric_limits<float>::quiet_NaN(), 5);
  EXPECT_TRUE(values(8).empty());
}

TEST_F(DegreeTicksTest, ACellOfAnotherDataSetIsASubscriptError) {
  alongLatitude(4);
  section.column_cells(1) = {7, 9};
  EXPECT_THROW(degreeAxisTitle(DegreeAxis::Longitude), util::RuntimeError);
  section.column_cells.clear();
  EXPECT_THROW(degreeTicks(DegreeAxis::Longitude, 8), util::RuntimeError);
}

TEST_F(DegreeTicksTest, TextsCarryTheHemisphereOfTheSignAlone) {
  struct Row {
    DegreeAxis axis;
    float value;
    const char* text;
  };
  const Row rows[] = {
      {DegreeAxis::Longitude, 350, "350E"},        {DegreeAxis::Longitude, 0, "0E"},
      {DegreeAxis::Longitude, -12.5F, "12.50W"},   {DegreeAxis::Latitude, 0, "0N"},
      {DegreeAxis::Latitude, -0.25F, "0.25S"},     {DegreeAxis::Latitude, 45, "45N"},
      {DegreeAxis::Latitude, 0.00009F, "0N"},      {DegreeAxis::Latitude, 0.0002F, "0.00N"},
      {DegreeAxis::Longitude, 100.254F, "100.25E"}};
  for (const Row& row : rows) EXPECT_EQ(degreeText(row.axis, row.value), row.text);
}

}  // namespace
