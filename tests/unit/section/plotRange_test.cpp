#include <gtest/gtest.h>

#include <limits>

#include "section/drawItems.h"
#include "section/sectionValues.h"

using namespace KelvaneMain;

namespace {

DrawItem withExtremes(float maximum, float minimum) {
  DrawItem item;
  item.maximum = maximum;
  item.minimum = minimum;
  return item;
}

TEST(PlotRange, IsMadeFromTheExtremes) {
  struct Row {
    float maximum, minimum, plot_max, plot_min, plot_interval;
  };
  constexpr Row rows[] = {
      {28.7F, 3.4F, 28.7F, 3, 5},     {0.9F, 0.1F, 0.9F, 0.1F, 0.16F},
      {1.5F, 1.2F, 1.5F, 1, 0.2F},    {1.1F, 1.05F, 1.1F, 1, 0.2F},
      {35.2F, 34.1F, 35.2F, 34, 0.4F}, {0.5F, 0.5F, 0.5F, 0.5F, 0},
      {5, 5, 5, 5, 0.2F},             {1.5F, 1.5F, 1.5F, 1, 0.2F},
      {-1, -9, -1, -9, 1},            {1000, 1, 1000, 1, 200},
      {12.4F, 2, 12.4F, 2, 2},        {-1e35F, 1e35F, 0, 0, 0},
      {0, 0, 0, 0, 0},                {3.4e38F, -9e34F, 3.4e38F, -9e34F, 6.8018e37F},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.maximum);
    DrawItems = {withExtremes(row.maximum, row.minimum)};
    RoundPlotRange();
    EXPECT_EQ(DrawItems(1).plot_max, row.plot_max);
    EXPECT_EQ(DrawItems(1).plot_min, row.plot_min);
    EXPECT_FLOAT_EQ(DrawItems(1).plot_interval, row.plot_interval);
  }
}

TEST(PlotRange, OfOneItemIsKeptOnceFound) {
  DrawItems = {withExtremes(10, 0), withExtremes(0, 0)};
  RoundPlotRange();
  EXPECT_EQ(DrawItems(1).plot_max, 10);
  const float interval = DrawItems(1).plot_interval;
  DrawItems(1).maximum = 50;
  DrawItems(2).maximum = 20;
  RoundPlotRange();
  EXPECT_EQ(DrawItems(1).plot_max, 10);
  EXPECT_EQ(DrawItems(1).plot_min, 0);
  EXPECT_EQ(DrawItems(1).plot_interval, interval);
  EXPECT_EQ(DrawItems(2).plot_max, 20) << "an item gets its range when it is first read";
}

TEST(PlotRange, OfAConstantFieldFollowsTheNextExtremes) {
  DrawItems = {withExtremes(0.5F, 0.5F)};
  RoundPlotRange();
  DrawItems(1).maximum = 0.75F;
  RoundPlotRange();
  EXPECT_EQ(DrawItems(1).plot_max, 0.75F);
  EXPECT_EQ(DrawItems(1).plot_min, 0.5F);
}

TEST(PlotRange, OfAnEmptyListIsNothing) {
  DrawItems.clear();
  RoundPlotRange();
  EXPECT_EQ(nDrawItems(), 0);
}

}  // namespace
