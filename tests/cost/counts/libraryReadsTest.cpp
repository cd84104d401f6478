// The section asks for every column by itself; the library is asked for what lies together.
#include <gtest/gtest.h>

#include <cstdio>

#include "LibraryReads.h"
#include "Scene.h"
#include "costData.h"
#include "netcdf/NetCDF.h"
#include "section/drawItems.h"
#include "section/sectionValues.h"

namespace cost {
namespace {

int64_t asked = 0;

// Counts what the section asks for; the data are packed, so it asks for short numbers.
int countedRequest(int ncid, int varid, const std::size_t* start, const std::size_t* count,
                   const std::ptrdiff_t* stride, short* values) {
  ++asked;
  static const auto reader = NetCDF::theLibrary().nc_get_vars_short;
  return reader(ncid, varid, start, count, stride, values);
}

class Reads : public testing::Test {
 protected:
  ~Reads() override { NetCDF::library = NetCDF::theLibrary(); }

  // What a read of the section takes of the library, while the reader is asked once a column.
  static int64_t readsOf(const bench::Scene& scene) {
    const LibraryReads reads;
    asked = 0;
    NetCDF::library.nc_get_vars_short = countedRequest;
    EXPECT_EQ(KelvaneMain::ReadVSData(KelvaneMain::VarShown, 1), 1);
    EXPECT_EQ(asked, scene.columns());
    EXPECT_GT(reads.count(), 0);
    std::printf("%d columns in %d reads\n", scene.columns(), static_cast<int>(reads.count()));
    return reads.count();
  }
};

TEST_F(Reads, OfChunksAreOneAChunk) {
  const bench::Scene scene(dataFile("levels"), bench::acrossPath(), bench::kWindow);
  EXPECT_LE(readsOf(scene), scene.levels());
}

TEST_F(Reads, OfAClassicFileAreForManyColumns) {
  const bench::Scene scene(dataFile("classic"), bench::acrossPath(), bench::kWindow);
  EXPECT_LE(readsOf(scene), scene.columns() / 4);
}

TEST_F(Reads, OfALongSectionAreForManyColumns) {
  bench::Scene scene(dataFile("long"), bench::acrossPath(), bench::kWindow);
  scene.useColumns(20'000);
  scene.control().Draw();
  EXPECT_LE(readsOf(scene), scene.columns() / 100);
}

}  // namespace
}  // namespace cost
