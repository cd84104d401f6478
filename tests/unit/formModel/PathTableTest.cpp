#include "model/PathTable.h"

#include <gtest/gtest.h>

namespace form {
namespace {

PathTable tableOf(const std::vector<PathTable::Row>& rows) {
  PathTable table;
  for (const auto& [longitude, latitude] : rows) {
    const std::size_t row = table.insertAfter(table.size());
    table.setLongitude(row, longitude);
    table.setLatitude(row, latitude);
  }
  return table;
}

std::wstring longitudes(const PathTable& table) {
  std::wstring all;
  for (std::size_t k = 0; k < table.size(); ++k) all += table.row(k).longitude + L" ";
  return all;
}

TEST(PathTable, ShowsAPath) {
  const PathTable table({{285.25, 32}, {292.75, 35.1}});
  ASSERT_EQ(table.size(), 2U);
  EXPECT_EQ(table.row(1).longitude, L"292.75");
  EXPECT_EQ(table.row(1).latitude, L"35.1");
  EXPECT_EQ(table.problem(), L"");
  EXPECT_EQ(table.note(), L"");
  EXPECT_EQ(table.path(), Path({{285.25, 32}, {292.75, 35.1}}));
}

TEST(PathTable, AddsRemovesAndMovesRows) {
  PathTable table({{1, 1}, {2, 2}, {3, 3}});
  EXPECT_EQ(table.insertAfter(0), 1U);
  table.setLongitude(1, L"1,5");
  EXPECT_EQ(longitudes(table), L"1 1,5 2 3 ");
  table.moveUp(3);
  EXPECT_EQ(longitudes(table), L"1 1,5 3 2 ");
  table.moveDown(0);
  EXPECT_EQ(longitudes(table), L"1,5 1 3 2 ");
  table.remove(2);
  EXPECT_EQ(longitudes(table), L"1,5 1 2 ");
}

TEST(PathTable, IsLeftAloneByARowThatIsNotThere) {
  PathTable table({{1, 1}, {2, 2}});
  table.moveUp(0);
  table.moveUp(2);
  table.moveDown(1);
  table.remove(2);
  table.setLongitude(2, L"9");
  table.setLatitude(7, L"9");
  EXPECT_EQ(table.path(), Path({{1, 1}, {2, 2}}));
  EXPECT_EQ(table.insertAfter(99), 2U);
}

TEST(PathTable, TellsTheFirstProblem) {
  EXPECT_EQ(PathTable().problem(), L"A path needs two points or more.");
  EXPECT_EQ(tableOf({{L"1", L"2"}}).problem(), L"A path needs two points or more.");
  EXPECT_EQ(tableOf({{L"1", L"2"}, {L"", L""}}).problem(), L"Point 2: the longitude is missing.");
  EXPECT_EQ(tableOf({{L"1", L" "}, {L"", L""}}).problem(), L"Point 1: the latitude is missing.");
  EXPECT_EQ(tableOf({{L"1x", L"2"}, {L"1", L"2"}}).problem(),
            L"Point 1: the longitude is not a number.");
  EXPECT_EQ(tableOf({{L"1", L"90.5"}, {L"1", L"2"}}).problem(),
            L"Point 1: the latitude must be from -90 to 90.");
  EXPECT_EQ(tableOf({{L"721", L"0"}, {L"1", L"2"}}).problem(),
            L"Point 1: the longitude must be from -360 to 720.");
  EXPECT_EQ(tableOf({{L"1", L"90.5"}, {L"1", L"2"}}).path(), std::nullopt);
}

TEST(PathTable, TakesTheLimitsThemselves) {
  EXPECT_EQ(tableOf({{L"-360", L"-90"}, {L"720", L"90"}}).problem(), L"");
}

// From each point the control goes on toward larger longitudes and latitudes only.
TEST(PathTable, NotesWhatWillSurprise) {
  EXPECT_EQ(PathTable({{1, 1}, {0, 2}}).note(),
            L"Point 2 lies west of point 1, but from each point a path runs east and north.");
  EXPECT_EQ(PathTable({{1, 1}, {2, 2}, {3, 1}}).note(),
            L"Point 3 lies south of point 2, but from each point a path runs east and north.");
  EXPECT_EQ(PathTable({{1, 1}, {1, 1}}).note(), L"Point 2 is the same as the one before it.");
  EXPECT_EQ(PathTable({{1, 1}, {1, 2}, {4, 2}}).note(), L"");
  EXPECT_EQ(tableOf({{L"2", L"2"}, {L"1", L"x"}}).note(), L"");
}

}  // namespace
}  // namespace form
