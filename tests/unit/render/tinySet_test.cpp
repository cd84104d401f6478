#include <gtest/gtest.h>

#include <algorithm>

#include "colorkey/rampColour.h"
#include "netcdf/catalogue.h"
#include "netcdf/geoWindow.h"
#include "netcdf/identify.h"
#include "netcdf/ncf.h"
#include "netcdf/title.h"
#include "render/drawVSection.h"
#include "render/plotFrame.h"
#include "render/settings.h"
#include "section/drawItems.h"
#include "section/sectionPath.h"
#include "section/sectionValues.h"
#include "support/RecordingPictureBox.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"
#include "util/lastError.h"

// From a data set on disk to the operations of its picture, with everything between.
namespace {

using namespace KelvaneMain;
using platform::rgb;
using support::Operation;
using Kind = Operation::Kind;
using Texts = std::vector<std::string>;

class TinySetTest : public testing::Test {
 protected:
  void SetUp() override {
    support::resetState();
    const std::string path = folder.file("tiny.nc");
    support::makeTinySet(path);
    ocxNetNc::DataSetName = path;
    ASSERT_GE(ocxNetNc::OpenCatalogue(path, 0), 0) << util::LastError;
    ASSERT_GT(ocxNetNc::IdentifyCoordinates(), 0) << util::LastError;
    ASSERT_EQ(BuildDrawItems(), 2);
    ASSERT_GT(ocxNetNc::SetGeoWindow(), 0) << util::LastError;
    ResetSettings();
    Item_shown = 1;
    VarShown = ItemMatch(1);
    TimeShown = 1;
  }
  void TearDown() override { support::resetState(); }

  void path(const std::vector<SectionPoint>& points) {
    ClearSectionPoints();
    for (const SectionPoint& point : points) AddSectionPoint(point.x, point.y);
    ASSERT_EQ(MakeKelvane(), 1) << util::LastError;
  }
  void draw(int32_t timeStep) {
    ASSERT_EQ(ReadVSData(VarShown, timeStep), timeStep) << util::LastError;
    RoundPlotRange();
    ocxNetNc::MakeTitle(VarShown, timeStep);
    boxes.forget();
    platform::Pictures pictures = boxes.pictures();
    DrawVSection(pictures);
    EXPECT_EQ(util::LastError, "");
  }
  std::vector<Operation> blocks() {
    auto found = boxes.picSection.of(Kind::Box);
    std::erase_if(found, [](const Operation& box) { return box.x1 > 512; });
    return found;
  }

  support::TempFolder folder;
  support::RecordingPictures boxes;
};

TEST_F(TinySetTest, AGeneralPath) {
  path({{350, -1}, {359, 0.3F}});
  ASSERT_EQ(section.section_kind, kGeneralPath);
  const util::OneBased<Cell> cells = {{1, 1}, {2, 1}, {2, 2}, {3, 2}, {4, 2}, {4, 3}, {5, 3}};
  ASSERT_TRUE(std::equal(cells.begin(), cells.end(), section.column_cells.begin(),
                         section.column_cells.end()));
  draw(1);
  EXPECT_EQ(ModColor::ValueMin, 9.0F);
  EXPECT_EQ(boxes.picDateTime.texts(), (Texts{"Date/Time: 1990-01-02 12:00:00"}));
  const Texts texts = boxes.picSection.texts();
  EXPECT_EQ(
      Texts(texts.begin(), texts.begin() + 5),
      (Texts{"Data Set: tiny.nc", "little run", "potential temperature [degC]", "0 km", "100"}));
  EXPECT_EQ(texts.back(), "17.30");
  EXPECT_EQ(boxes.picSection.of(Kind::Line)[1].x1, 94.20122F);
  const auto found = blocks();
  ASSERT_EQ(found.size(), 14U);
  EXPECT_EQ(found[0].x2, 114.0F);
  EXPECT_EQ(found[0].y2, 116.25F);
  EXPECT_EQ(found[0].colour, rgb(245, 96, 96));
  EXPECT_EQ(found[13].x2, 510.0F);
  EXPECT_EQ(found[13].y2, 348.0F);
}

TEST_F(TinySetTest, AConstantLatitudeShowsLongitudes) {
  path({{350, 0}, {358, 0}});
  ASSERT_EQ(section.section_kind, kSameLatitude);
  draw(1);
  const Texts texts = boxes.picSection.texts();
  const Texts axis(texts.begin() + 3, texts.begin() + 9);
  EXPECT_EQ(axis, (Texts{"350E", "352E", "354E", "356E", "358E",
                         "Longitude (deg) Along Constant Latitude= 0N"}));
  EXPECT_EQ(plot.BottomMargin, 39.0F);
  EXPECT_EQ(blocks().size(), 8U);
  EXPECT_FLOAT_EQ(blocks().back().y2, 322.0F);
}

TEST_F(TinySetTest, AConstantLongitudeShowsLatitudes) {
  path({{354.5F, -1}, {354.5F, 0.4F}});
  ASSERT_EQ(section.section_kind, kSameLongitude);
  draw(1);
  const Texts texts = boxes.picSection.texts();
  const Texts axis(texts.begin() + 3, texts.begin() + 6);
  EXPECT_EQ(axis, (Texts{"1S", "0N", "Latitude (deg) Along Constant Longitude= 354E"}));
  const platform::Colour expected[] = {rgb(245, 0, 0),   rgb(245, 18, 18), rgb(245, 37, 37),
                                       rgb(78, 78, 245), rgb(97, 97, 245), rgb(115, 115, 245)};
  const auto found = blocks();
  ASSERT_EQ(found.size(), 6U);
  for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(found[i].colour, expected[i]) << i;
}

TEST_F(TinySetTest, ALaterStepKeepsTheRangeAndChangesTheDate) {
  path({{354.5F, -1}, {354.5F, 0.4F}});
  draw(1);
  const float kept = DrawItems(1).plot_max;
  draw(2);
  EXPECT_EQ(DrawItems(1).plot_max, kept);
  EXPECT_GT(DrawItems(1).maximum, kept);
  EXPECT_EQ(boxes.picDateTime.texts(), (Texts{"Date/Time: 1990-01-03 12:00:00"}));
  EXPECT_EQ(blocks()[0].colour, rgb(245, 0, 0));  // above the range, capped
}

TEST_F(TinySetTest, MissingValuesLeaveTheirCellsOpen) {
  Item_shown = 2;  // no value in the southernmost row
  VarShown = ItemMatch(2);
  path({{354.5F, -1}, {354.5F, 0.4F}});
  draw(1);
  const auto found = blocks();
  ASSERT_EQ(found.size(), 4U);
  for (const Operation& box : found) EXPECT_GT(box.x1, 200.0F);
}

}  // namespace
