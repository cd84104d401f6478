#include <array>
#include <cstring>
#include <random>
#include <tuple>

#include "netcdf/NetCDF.h"
#include "section/drawItems.h"
#include "section/sectionValues.h"
#include "support/NcMaker.h"
#include "unit/section/SectionTest.h"
#include "util/lastError.h"

using namespace KelvaneMain;

// However a variable is stored, a section of it has the bits that plain reads give.
namespace {

constexpr std::size_t kTimes = 3, kLevels = 7, kLats = 30, kLons = 40;

struct Layout {
  const char* name;
  int mode = 0;
  bool records = false;
  std::array<std::size_t, 4> chunk{};  // none: all in one piece
  bool packed = false;
};

constexpr Layout kLayouts[] = {
    {"Classic"},
    {"Records", NC_64BIT_OFFSET, true},
    {"Contiguous", NC_NETCDF4},
    {"ByLevel", NC_NETCDF4, false, {1, 1, kLats, kLons}, true},
    {"ByLevelPlain", NC_NETCDF4, false, {1, 1, kLats, kLons}},
    {"ByTime", NC_NETCDF4, true, {kTimes, 1, 7, 9}, true},
    {"ByColumn", NC_NETCDF4, false, {1, kLevels, 1, 1}},
    {"ByRow", NC_NETCDF4, false, {1, 1, 1, kLons}, true},
    {"Tiny", NC_NETCDF4, false, {1, 2, 3, 2}, true},
    {"Whole", NC_NETCDF4, false, {kTimes, kLevels, kLats, kLons}, true},
};
constexpr nc_type kTypes[] = {NC_BYTE, NC_SHORT, NC_INT, NC_FLOAT, NC_DOUBLE};

const std::vector<std::vector<SectionPoint>> kPaths = {
    {{0.1F, 0.1F}, {39, 29}},                          // across everything
    {{0.1F, 0.1F}, {20, 3}, {5, 12}, {38, 28}},        // in legs that meet again
    {{3, 0.1F}, {7, 29}},                              // steep
    {{0.1F, 11}, {39, 11}},                            // along a row
    {{17, 0.1F}, {17, 29}},                            // along a column
};

using Parameters = std::tuple<Layout, nc_type, bool>;

class SectionLayouts : public SectionTest, public testing::WithParamInterface<Parameters> {
 protected:
  // Makes v(time, depth, lat, lon), or with the horizontal dimensions the other way round.
  static void make(const std::string& path) {
    const auto& [layout, type, lonFirst] = GetParam();
    support::NcMaker nc(path, layout.mode);
    const int time = nc.dim("time", layout.records ? NC_UNLIMITED : kTimes);
    const int depth = nc.dim("depth", kLevels);
    const int lat = nc.dim("lat", kLats), lon = nc.dim("lon", kLons);
    const auto axis = [&](const char* name, int dim, const char* units) {
      const int var = nc.var(name, NC_DOUBLE, {dim});
      nc.text(var, "units", units);
      return var;
    };
    const int times = axis("time", time, "days since 2000-01-01");
    const int depths = axis("depth", depth, "m");
    const int lats = axis("lat", lat, "degrees_north"), lons = axis("lon", lon, "degrees_east");
    const int v = nc.var("v", type, {time, depth, lonFirst ? lon : lat, lonFirst ? lat : lon});
    nc.number(v, "missing_value", NC_DOUBLE, {100});
    nc.number(v, "scale_factor", NC_DOUBLE, {0.1});
    nc.number(v, "add_offset", NC_DOUBLE, {3});
    if (layout.chunk[0] > 0) {
      std::array<std::size_t, 4> chunk = layout.chunk;
      if (lonFirst) std::swap(chunk[2], chunk[3]);
      ASSERT_EQ(nc_def_var_chunking(nc.id(), v, NC_CHUNKED, chunk.data()), NC_NOERR);
      if (layout.packed) { ASSERT_EQ(nc_def_var_deflate(nc.id(), v, 1, 1, 1), NC_NOERR); }
    }
    const auto count = [](std::size_t length) {
      std::vector<double> numbers(length);
      for (std::size_t n = 0; n < length; ++n) numbers[n] = static_cast<double>(n);
      return numbers;
    };
    nc.putSlab(times, {0}, {kTimes}, count(kTimes));
    nc.put(depths, count(kLevels));
    nc.put(lats, count(kLats));
    nc.put(lons, count(kLons));
    std::mt19937 random(7);
    std::vector<double> values(kTimes * kLevels * kLats * kLons);
    for (double& value : values) value = static_cast<double>(random() % 240) - 120;
    if (lonFirst) {
      nc.putSlab(v, {0, 0, 0, 0}, {kTimes, kLevels, kLons, kLats}, values);
    } else {
      nc.putSlab(v, {0, 0, 0, 0}, {kTimes, kLevels, kLats, kLons}, values);
    }
  }
  // All bits of a section of the third time step: its values, its marks and the item's extremes.
  static std::vector<uint32_t> bits() {
    EXPECT_EQ(ReadVSData(VarShown, 3), 3) << util::LastError;
    std::vector<uint32_t> all;
    const auto add = [&](float value) {
      uint32_t word = 0;
      std::memcpy(&word, &value, sizeof word);
      all.push_back(word);
    };
    for (const float value : section_values.values()) add(value);
    for (const int16_t mark : section_values.marks()) all.push_back(static_cast<uint32_t>(mark));
    add(DrawItems(Item_shown).maximum);
    add(DrawItems(Item_shown).minimum);
    return all;
  }
};

TEST_P(SectionLayouts, GiveTheBitsOfPlainReads) {
  const std::string path = folder.file("set.nc");
  ASSERT_NO_FATAL_FAILURE(make(path));
  for (std::size_t n = 0; n < kPaths.size(); ++n) {
    SCOPED_TRACE(n);
    ASSERT_NO_FATAL_FAILURE(openAlong(path, kPaths[n]));
    ASSERT_EQ(section.section_kind == kGeneralPath, n < 3);
    const std::vector<uint32_t> ahead = bits();
    NetCDF::library = NetCDF::bareLibrary();
    const std::vector<uint32_t> plain = bits();
    NetCDF::library = NetCDF::theLibrary();
    EXPECT_EQ(ahead, plain);
    EXPECT_NE(DrawItems(1).maximum, DrawItems(1).minimum);
  }
}

std::string title(const testing::TestParamInfo<Parameters>& tested) {
  return std::string(std::get<0>(tested.param).name) + "Type" +
         std::to_string(std::get<1>(tested.param)) +
         (std::get<2>(tested.param) ? "LonFirst" : "LatFirst");
}

INSTANTIATE_TEST_SUITE_P(, SectionLayouts,
                         testing::Combine(testing::ValuesIn(kLayouts), testing::ValuesIn(kTypes),
                                          testing::Bool()),
                         title);

}  // namespace
