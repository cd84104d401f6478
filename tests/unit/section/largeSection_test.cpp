#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "netcdf/requestPieces.h"
#include "section/drawItems.h"
#include "section/sectionValues.h"
#include "support/NcMaker.h"
#include "unit/section/ReadRecorder.h"
#include "unit/section/SectionTest.h"
#include "util/lastError.h"

using namespace KelvaneMain;

namespace {

// Makes a data set with v(time 1, depth, lat 2, lon), longitudes 0.01 degrees apart from 0,
// latitudes 0 and 0.01; v has no values unless they are given, and chunks if their lengths are.
void makeWideSet(const std::string& path, int mode, std::size_t levels, std::size_t columns,
                 nc_type type, const std::vector<double>& values,
                 const std::vector<std::size_t>& chunk = {}) {
  support::NcMaker nc(path, mode);
  const int time = nc.dim("time", 1);
  const int depth = nc.dim("depth", levels);
  const int lat = nc.dim("lat", 2);
  const int lon = nc.dim("lon", columns);
  const auto axis = [&](const char* name, int dim, std::size_t length, const char* units,
                        double step) {
    const int variable = nc.var(name, NC_DOUBLE, {dim});
    nc.text(variable, "units", units);
    std::vector<double> places(length);
    for (std::size_t n = 0; n < length; ++n) places[n] = step * static_cast<double>(n);
    return std::pair(variable, places);
  };
  const std::vector axes = {axis("time", time, 1, "days since 2000-01-01", 1),
                            axis("depth", depth, levels, "m", 1),
                            axis("lat", lat, 2, "degrees_north", 0.01),
                            axis("lon", lon, columns, "degrees_east", 0.01)};
  const int v = nc.var("v", type, {time, depth, lat, lon});
  if (!chunk.empty()) nc_def_var_chunking(nc.id(), v, NC_CHUNKED, chunk.data());
  for (const auto& [variable, places] : axes) nc.put(variable, places);
  if (!values.empty()) nc.put(v, values);
}

class LargeSection : public SectionTest {};

TEST_F(LargeSection, IsReadInPiecesWithTheSameValues) {
  constexpr std::size_t kLevels = 200;
  constexpr std::size_t kColumns = 20000;
  const auto raw = [](std::size_t k, std::size_t j, std::size_t i) {
    return static_cast<double>((k * 7919 + j * 104729 + i * 31) % 32000);
  };
  {
    std::vector<double> values;
    values.reserve(kLevels * 2 * kColumns);
    for (std::size_t k = 0; k < kLevels; ++k) {
      for (std::size_t j = 0; j < 2; ++j) {
        for (std::size_t i = 0; i < kColumns; ++i) values.push_back(raw(k, j, i));
      }
    }
    makeWideSet(folder.file("wide.nc"), 0, kLevels, kColumns, NC_SHORT, values);
  }
  ASSERT_NO_FATAL_FAILURE(openAlong(folder.file("wide.nc"), {{0, 0.01F}, {199.99F, 0.01F}}));
  ASSERT_EQ(section.section_kind, kSameLatitude);
  const ReadRecorder recorder;
  ASSERT_EQ(ReadVSData(VarShown, 1), 1) << util::LastError;
  ASSERT_EQ(section_values.ncols(), section.ncols);
  ASSERT_GT(section.ncols, 19900);
  for (int32_t c = 1; c <= section.ncols; ++c) {
    const Cell cell = section.column_cells(c);
    for (int32_t k = 1; k <= 200; ++k) {
      ASSERT_EQ(section_values.value(c, k),
                static_cast<float>(raw(static_cast<std::size_t>(k - 1),
                                       static_cast<std::size_t>(cell.j - 1),
                                       static_cast<std::size_t>(cell.i - 1))))
          << c << ' ' << k;
    }
  }
  EXPECT_GT(recorder.reads().size(), 1U);
  for (const ReadRecorder::Read& read : recorder.reads()) {
    std::size_t elements = 1;
    for (const std::size_t count : read.count) elements *= count;
    EXPECT_LE(elements, static_cast<std::size_t>(ocxNetNc::kMostPerRequest));
  }
}

// Every piece would unpack all chunks again.
TEST_F(LargeSection, IsReadAtOnceFromChunks) {
  constexpr std::size_t kLevels = 200;
  constexpr std::size_t kColumns = 6000;
  std::vector<double> values(kLevels * 2 * kColumns);
  for (std::size_t n = 0; n < values.size(); ++n) values[n] = static_cast<double>(n % 32003);
  makeWideSet(folder.file("chunks.nc"), NC_NETCDF4, kLevels, kColumns, NC_SHORT, values,
              {1, kLevels, 2, 500});
  makeWideSet(folder.file("classic.nc"), 0, kLevels, kColumns, NC_SHORT, values);
  const std::vector<SectionPoint> row = {{0, 0.01F}, {59.99F, 0.01F}};
  ASSERT_NO_FATAL_FAILURE(openAlong(folder.file("classic.nc"), row));
  ASSERT_EQ(ReadVSData(VarShown, 1), 1) << util::LastError;
  const std::vector<float> expected(section_values.values().begin(), section_values.values().end());
  ASSERT_GT(expected.size(), static_cast<std::size_t>(ocxNetNc::kMostPerRequest));
  ASSERT_NO_FATAL_FAILURE(openAlong(folder.file("chunks.nc"), row));
  const ReadRecorder recorder;
  ASSERT_EQ(ReadVSData(VarShown, 1), 1) << util::LastError;
  EXPECT_TRUE(std::ranges::equal(section_values.values(), expected));
  EXPECT_EQ(recorder.reads().size(), 1U);
}

// A file of a few kilobytes can describe two milliards of values.
TEST_F(LargeSection, IsRefusedBeyondWhatAProcessCanHold) {
  makeWideSet(folder.file("endless.nc"), NC_NETCDF4, 100000, 20000, NC_FLOAT, {});
  ASSERT_NO_FATAL_FAILURE(openAlong(folder.file("endless.nc"), {{0, 0.01F}, {199.99F, 0.01F}}));
  const ReadRecorder recorder;
  EXPECT_EQ(ReadVSData(VarShown, 1), -1);
  EXPECT_EQ(util::LastError, "[ReadVSData] Error: Out of memory");
  EXPECT_EQ(recorder.opened(), 0);
  EXPECT_TRUE(section_values.empty());

  ASSERT_NO_FATAL_FAILURE(openAlong(folder.file("endless.nc"), {{0, 0.01F}, {0.05F, 0.01F}}));
  EXPECT_EQ(ReadVSData(VarShown, 1), 1) << util::LastError;
}

}  // namespace
