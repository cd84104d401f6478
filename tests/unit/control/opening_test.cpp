#include <filesystem>
#include <fstream>

#include "colorkey/colorKey.h"
#include "netcdf/ncf.h"
#include "netcdf/status.h"
#include "netcdf/title.h"
#include "render/settings.h"
#include "section/drawItems.h"
#include "support/NcMaker.h"
#include "unit/control/ControlTest.h"
#include "util/lastError.h"

using namespace KelvaneMain;
using ocxNetNc::ncf;

namespace {

class Opening : public ControlTest {
 protected:
  std::string fileOf(const std::string& name, const std::string& bytes) const {
    const std::string path = folder.file(name);
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }
  // The first bytes of a good file.
  std::string truncated(std::size_t bytes) const {
    const std::string path = tinySet("truncated.nc");
    std::filesystem::resize_file(path, bytes);
    return path;
  }
  // A small set that opens; each test spoils one thing.
  struct Recipe {
    std::string name = "spoilt.nc", lonUnits = "degrees_east", level = "depth";
    std::vector<double> lons = {5, 6};
  };
  std::string spoiltSet(const Recipe& recipe) const {
    const std::string path = folder.file(recipe.name);
    support::NcMaker nc(path);
    const int t = nc.dim("time", 1), z = nc.dim(recipe.level, 2);
    const int y = nc.dim("lat", 2), x = nc.dim("lon", recipe.lons.size());
    const int ts = nc.var("time", NC_DOUBLE, {t}), zs = nc.var(recipe.level, NC_FLOAT, {z});
    const int ys = nc.var("lat", NC_FLOAT, {y}), xs = nc.var("lon", NC_FLOAT, {x});
    nc.text(ts, "units", "days since 2000-01-01");
    nc.text(ys, "units", "degrees_north");
    nc.text(xs, "units", recipe.lonUnits);
    nc.var("q", NC_FLOAT, {t, z, y, x});
    nc.put(ts, {0});
    nc.put(zs, {0, 10});
    nc.put(ys, {0, 1});
    nc.put(xs, recipe.lons);
    return path;
  }
};

TEST_F(Opening, PreparesItemOneAndTimeStepOne) {
  const std::string path = tinySet();
  EXPECT_EQ(control.NcFile(path), 1);
  EXPECT_EQ(ocxNetNc::DataSetName, path);
  EXPECT_EQ(control.NumDrawAbleItems(), 2);
  EXPECT_EQ(control.ItemName(1), "temp");
  EXPECT_EQ(control.ItemName(2), "salt");
  EXPECT_EQ(control.ItemName(0), "");
  EXPECT_EQ(control.ItemName(3), "");
  EXPECT_EQ(control.ItemName(-1), "");
  EXPECT_EQ(Item_shown, 1);
  EXPECT_EQ(VarShown, 5);
  EXPECT_EQ(TimeShown, 1);
  EXPECT_FALSE(ocxNetNc::isOpen());
  EXPECT_EQ(control.ErrorMessage(), "");
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(Opening, IdentifiesAxesTimesAndTitles) {
  ASSERT_EQ(control.NcFile(tinySet()), 1);
  EXPECT_EQ(ncf.time_dId, 0);
  EXPECT_EQ(ncf.level_dId, 1);
  EXPECT_EQ(ncf.lat_dId, 2);
  EXPECT_EQ(ncf.lon_dId, 3);
  EXPECT_EQ(ncf.time_vId, 1);
  EXPECT_EQ(ncf.level_vId, 2);
  EXPECT_EQ(ncf.lat_vId, 3);
  EXPECT_EQ(ncf.lon_vId, 4);
  EXPECT_EQ(ncf.grid_order, -1);
  EXPECT_EQ(ncf.ntime, 2);
  EXPECT_EQ(ncf.time_unit, "hours");
  EXPECT_EQ(ncf.first_time_label, "1990-01-02 12:00:00");
  EXPECT_EQ(ncf.last_time_label, "1990-01-03 12:00:00");
  EXPECT_EQ(ncf.lon_values(6), 360.0F);
  EXPECT_EQ(ncf.dlon, 2.0F);
  const ocxNetNc::NcVar& temp = ncf.NcVars(5);
  EXPECT_EQ(temp.Scale, 0.01);
  EXPECT_EQ(temp.Offset, 10);
  EXPECT_EQ(temp.Missing, -32768);
  EXPECT_EQ(ocxNetNc::TitleLines(1), "tiny.nc");
  EXPECT_EQ(ocxNetNc::TitleLines(2), "1990-01-02 12:00:00");
  EXPECT_EQ(ocxNetNc::TitleLines(3), "little run");
  EXPECT_EQ(ocxNetNc::TitleLines(4), "potential temperature [degC]");
}

TEST_F(Opening, SetsTheDrawingSettingsButTheProfileStyle) {
  settings.ViewStyle = 1;
  settings.ProfileStyle = 1;
  settings.ContourLineColor = 255;
  control.DrawProfile(true);
  ASSERT_EQ(control.NcFile(tinySet()), 1);
  EXPECT_EQ(settings.ShowLegend, 1);
  EXPECT_EQ(settings.ShowTitles, 1);
  EXPECT_EQ(settings.FlagReserved, 1);
  EXPECT_EQ(settings.ShowDistanceAxis, 1);
  EXPECT_EQ(settings.ShowDepthAxis, 1);
  EXPECT_EQ(settings.ViewStyle, 0);
  EXPECT_EQ(settings.ContourLineColor, 0);
  EXPECT_EQ(settings.ContourLevels, 1);
  EXPECT_EQ(settings.ViewMode, 2);
  EXPECT_EQ(settings.ProfileStyle, 1);
}

TEST_F(Opening, OfAMissingFileShowsTheLibrarysMessage) {
  const std::string path = folder.file("nosuch.nc");
  EXPECT_EQ(control.NcFile(path), -1);
  EXPECT_EQ(control.ErrorMessage(), "No such file or directory");
  ASSERT_EQ(desktop.messages.size(), 1U);
  EXPECT_EQ(desktop.messages[0].caption, "NetCDF Error");
  EXPECT_EQ(desktop.messages[0].icon, platform::MessageIcon::Critical);
  EXPECT_EQ(ocxNetNc::DataSetName, path);
  EXPECT_EQ(settings.ViewMode, 0);
  EXPECT_EQ(control.NumDrawAbleItems(), 0);
}

TEST_F(Opening, OfForeignFilesFails) {
  EXPECT_EQ(control.NcFile(fileOf("text.nc", "This is a text, not a data set.\n")), -1);
  EXPECT_EQ(control.ErrorMessage(), "NetCDF: Unknown file format");
  for (const std::string& path :
       {fileOf("empty.nc", ""), fileOf("short.nc", "CDF"), fileOf("magic.nc", "CDF\x01"),
        folder.path().string(), std::string(), std::string(5000, 'x'), std::string("a\0b", 3)}) {
    util::LastError.clear();
    desktop.messages.clear();
    EXPECT_EQ(control.NcFile(path), -1) << path;
    EXPECT_NE(control.ErrorMessage(), "") << path;
    EXPECT_EQ(desktop.messages.size(), 1U) << path;
    EXPECT_FALSE(ocxNetNc::isOpen());
  }
}

TEST_F(Opening, OfATruncatedHeaderFails) {
  // The library takes the missing bytes for zeros: some of these files open and hold nothing.
  for (const std::size_t bytes : {9U, 40U, 100U, 200U, 400U}) {
    EXPECT_EQ(control.NcFile(truncated(bytes)), -1) << bytes;
    EXPECT_EQ(settings.ViewMode, 0);
  }
  EXPECT_EQ(control.NcFile(tinySet()), 1);
  EXPECT_FALSE(ocxNetNc::isOpen());
}

TEST_F(Opening, OfTheUnspoiltSmallSetSucceeds) {
  EXPECT_EQ(control.NcFile(spoiltSet({})), 1) << control.ErrorMessage();
}

TEST_F(Opening, WithoutAVerticalAxisFailsAndTheNextOneSucceeds) {
  EXPECT_EQ(control.NcFile(spoiltSet({.level = "pressure"})), -1);
  EXPECT_EQ(control.ErrorMessage(), "");
  EXPECT_EQ(control.NcFile(tinySet()), 1);
  EXPECT_FALSE(ocxNetNc::isOpen());
}

TEST_F(Opening, ThatFailsLeavesSettingsAndSelectionAlone) {
  const struct {
    const char* what;
    std::string path;
  } cases[] = {
      {"no file", folder.file("nosuch.nc")},
      {"no longitude", spoiltSet({.name = "nolon.nc", .lonUnits = "m"})},
      {"no vertical axis", spoiltSet({.name = "flat.nc", .level = "pressure"})},
      {"a single longitude", spoiltSet({.name = "onelon.nc", .lons = {5}})},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    ASSERT_NO_FATAL_FAILURE(openAlongLatitude());
    ASSERT_EQ(control.SetVarByOrder(2), 1);
    control.SetCurrentTime(2);
    KelvaneMain::settings = {.ShowLegend = 2,
                             .ShowTitles = 3,
                             .FlagReserved = 4,
                             .ShowDistanceAxis = 5,
                             .ShowDepthAxis = 6,
                             .ViewStyle = 7,
                             .ContourLineColor = 8,
                             .ContourLevels = 9,
                             .ViewMode = 1,
                             .ProfileStyle = 10};
    EXPECT_EQ(control.NcFile(c.path), -1);
    EXPECT_EQ(settings.ShowLegend, 2);
    EXPECT_EQ(settings.ShowTitles, 3);
    EXPECT_EQ(settings.FlagReserved, 4);
    EXPECT_EQ(settings.ShowDistanceAxis, 5);
    EXPECT_EQ(settings.ShowDepthAxis, 6);
    EXPECT_EQ(settings.ViewStyle, 7);
    EXPECT_EQ(settings.ContourLineColor, 8);
    EXPECT_EQ(settings.ContourLevels, 9);
    EXPECT_EQ(settings.ViewMode, 1);
    EXPECT_EQ(settings.ProfileStyle, 10);
    EXPECT_EQ(Item_shown, 2);
    EXPECT_EQ(VarShown, 7);
    EXPECT_EQ(TimeShown, 2);
    EXPECT_EQ(section.ncols, 4);
  }
}

TEST_F(Opening, LeavesSectionAndColourKeyAlone) {
  ASSERT_NO_FATAL_FAILURE(openAlongLatitude());
  control.AddColorKey(0, 10, 255);
  control.UseColorKey(true);
  ASSERT_EQ(control.NcFile(tinySet("other.nc")), 1);
  EXPECT_EQ(NumSectionPoints, 2);
  EXPECT_EQ(section.ncols, 4);
  EXPECT_EQ(ModColor::ColorKey.nDivision, 1);
  EXPECT_TRUE(control.UseColorKey());
  control.Draw();
  EXPECT_EQ(control.ErrorMessage(), "");
}

}  // namespace
