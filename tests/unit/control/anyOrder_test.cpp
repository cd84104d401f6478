#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <random>

#include "colorkey/kewFile.h"
#include "section/drawItems.h"
#include "section/sectionValues.h"
#include "support/NcMaker.h"
#include "unit/control/ControlTest.h"

using namespace KelvaneMain;

namespace {

// A host that calls anything at any time with any argument.
class AnyOrder : public ControlTest {
 protected:
  AnyOrder() {
    const std::string good = tinySet();
    const auto size = static_cast<uint32_t>(std::filesystem::file_size(good));
    files = {good, folder.file("nosuch.nc"), "", folder.path().string()};
    for (const uint32_t length : {0U, 3U, 60U, 300U, 700U, size / 2, size - 9}) {
      files.push_back(folder.file("cut" + std::to_string(length) + ".nc"));
      std::filesystem::copy_file(good, files.back());
      std::filesystem::resize_file(files.back(), length);
    }
    files.push_back(folder.file("text.nc"));
    std::ofstream(files.back()) << "not a data set";
    files.push_back(regularSet("classic.nc", 0, 3, 40));
    files.push_back(regularSet("hdf.nc", NC_NETCDF4, 7, 3));
    files.push_back(regularSet("onepoint.nc", 0, 2, 1));
    files.push_back(cellSet());
  }

  std::string regularSet(const std::string& name, int mode, std::size_t levels,
                         std::size_t longitudes) const {
    const std::string path = folder.file(name);
    support::NcMaker nc(path, mode);
    const int time = nc.dim("time", 3), depth = nc.dim("depth", levels), lat = nc.dim("lat", 5),
              lon = nc.dim("lon", longitudes);
    const int timeVar = nc.var("time", NC_DOUBLE, {time});
    nc.text(timeVar, "units", "days since 2000-01-01");
    const int depthVar = nc.var("depth", NC_DOUBLE, {depth});
    const int latVar = nc.var("lat", NC_FLOAT, {lat}), lonVar = nc.var("lon", NC_FLOAT, {lon});
    nc.text(latVar, "units", "degrees_north");
    nc.text(lonVar, "units", "degrees_east");
    const int speed = nc.var("speed", NC_FLOAT, {time, depth, lat, lon});
    const int letters = nc.var("letters", NC_CHAR, {time, depth, lat, lon});
    const int turned = nc.var("turned", NC_INT, {time, depth, lon, lat});
    const auto count = [](std::size_t n, double from, double step) {
      std::vector<double> list;
      for (std::size_t i = 0; i < n; ++i) list.push_back(from + step * static_cast<double>(i));
      return list;
    };
    nc.put(timeVar, count(3, 0, 1));
    nc.put(depthVar, count(levels, 0, 10));
    nc.put(latVar, count(5, 40, 1));
    nc.put(lonVar, count(longitudes, 350, 0.5));
    nc.put(speed, count(3 * levels * 5 * longitudes, -1, 0.25));
    nc.put(turned, count(3 * levels * 5 * longitudes, 100, 1));
    static_cast<void>(letters);
    nc.close();
    return path;
  }

  std::string cellSet() const {
    const std::string path = folder.file("cells.nc");
    support::NcMaker nc(path);
    const int time = nc.dim("time", 1), depth = nc.dim("depth", 2), j = nc.dim("jcell", 2),
              i = nc.dim("icell", 3);
    const int depthVar = nc.var("depth", NC_FLOAT, {depth});
    const int lon = nc.var("lon", NC_FLOAT, {j, i}), lat = nc.var("lat", NC_FLOAT, {j, i});
    nc.text(lon, "units", "degrees_east");
    nc.text(lat, "units", "degrees_north");
    const int v = nc.var("v", NC_FLOAT, {time, depth, j, i});
    nc.put(depthVar, {0, 10});
    nc.put(lon, {0, 1, 2, 0, 1, 2});
    nc.put(lat, {0, 0, 0, 1, 1, 1});
    nc.put(v, std::vector<double>(12, 5));
    nc.close();
    return path;
  }

  uint32_t below(uint32_t limit) { return static_cast<uint32_t>(random()) % limit; }

  int32_t anyLong() {
    constexpr int32_t odd[] = {0, 1, 2, 3, -1, -2, 4, 100, std::numeric_limits<int32_t>::max(),
                               std::numeric_limits<int32_t>::min()};
    return below(4) == 0 ? static_cast<int32_t>(random()) : odd[below(std::size(odd))];
  }

  float anySingle() {
    constexpr float limit = std::numeric_limits<float>::max();
    constexpr float inf = std::numeric_limits<float>::infinity();
    constexpr float odd[] = {0, -1, 1, limit, -limit, inf, -inf,
                             std::numeric_limits<float>::quiet_NaN(), 1e-40F, 1e9F, -2e9F};
    if (below(6) == 0) return odd[below(std::size(odd))];
    return static_cast<float>(below(8000)) / 20.0F - 20.0F;
  }

  std::string anyText() {
    const std::string texts[] = {"temp", "SALT", "speed", "letters", "turned", "v", "",
                                 "nosuch", std::string(300, 'n'), "\xff\xfe"};
    return texts[below(std::size(texts))];
  }

  // One call. True when a run-time error came out of a member that may let one out.
  bool anyCall() {
    const uint32_t member = below(24);
    try {
      call(member);
      return false;
    } catch (const util::RuntimeError&) {
      EXPECT_TRUE(member == kAddSection || member == kAddColorKey || member == kAdvanceTime)
          << "member " << member;
      return true;
    }
  }

  std::mt19937 random{1729};
  std::vector<std::string> files;

 private:
  static constexpr uint32_t kAddSection = 4, kAddColorKey = 5, kAdvanceTime = 19;

  void call(uint32_t member) {
    switch (member) {
      case 0: return control.ShowOptions();
      case 1: control.NcFile(files[below(static_cast<uint32_t>(files.size()))]); return;
      case 2: control.KewFile(below(2) == 0 ? anyText() : ModColor::ownKewFile()); return;
      case 3: return control.NewSection();
      case kAddSection: return control.AddSection(anySingle(), anySingle());
      case kAddColorKey: return control.AddColorKey(anySingle(), anySingle(), anyLong());
      case 6: return control.NewColorKey();
      case 7: control.EndSection(); return;
      case 8: control.SetVarByName(anyText()); return;
      case 9: control.SetVarByOrder(anyLong()); return;
      case 10: control.ErrorMessage(); return;
      case 11: control.ItemName(anyLong()); return;
      case 12: return control.DrawProfile(below(4) == 0);
      case 13: return control.DrawVerticalSection(below(4) != 0);
      case 14: case 15: return control.Draw();
      case 16: return control.SetCurrentTime(anyLong());
      case 17: return control.UseColorKey(below(2) == 0);
      case 18: return control.InitColorKey();
      case kAdvanceTime: control.AdvanceTime(anyLong()); return;
      case 20: return control.ReDraw();
      case 21: return control.Resize(static_cast<int32_t>(below(700)) - 20,
                                     static_cast<int32_t>(below(500)) - 20);
      case 22:
        // Points in the grids, so that sections are found often enough.
        return control.AddSection(350 + static_cast<float>(below(20)) / 2,
                                  static_cast<float>(below(50)) - 3);
      default: control.NumDrawAbleItems(); return;
    }
  }
};

TEST_F(AnyOrder, NeitherCrashesNorSpoilsWhatFollows) {
  int errors = 0, sections = 0;
  std::size_t blocks = 0;
  for (int n = 0; n < 50000; ++n) {
    if (anyCall()) ++errors;
    if (section.ncols > 1) ++sections;
    EXPECT_FALSE(desktop.waiting) << "call " << n;
    if (n % 500 == 0) {
      blocks += boxes.picSection.of(support::Operation::Kind::Box).size();
      boxes.forget();
      desktop.messages.clear();
    }
  }
  EXPECT_GT(errors, 100);
  EXPECT_GT(sections, 1000);
  EXPECT_GT(blocks, 10000U);

  // A host that now does everything in good order gets exactly what it would have got at first.
  desktop.messages.clear();
  control.Resize(600, 400);
  ASSERT_EQ(control.NcFile(files[0]), 1) << control.ErrorMessage();
  ASSERT_EQ(sectionThrough({{350, -1}, {360, 0.5F}}), 1) << control.ErrorMessage();
  control.UseColorKey(false);
  boxes.forget();
  control.Draw();
  EXPECT_EQ(section.section_length_km, 999.973598390379);
  EXPECT_EQ(section_values.ncols(), 7);
  EXPECT_EQ(section_values.value(1, 1), 16.22F);
  EXPECT_EQ(section_values.value(7, 2), 13.8F);
  EXPECT_EQ(section_values.mark(7, 3), 0);
  EXPECT_EQ(DrawItems(1).maximum, 17.3F);
  EXPECT_EQ(DrawItems(1).minimum, 9.22F);
  boxes.picSection.printOf("0 km");
  EXPECT_TRUE(desktop.messages.empty());
}

}  // namespace
