#include <algorithm>
#include <cstring>
#include <random>
#include <string>

#include "NcTest.h"
#include "netcdf/readAhead.h"

// Variables of any shape and storage, paths of any kind: what is read ahead has the bits of single
// reads, and their statuses.
namespace {

using NetCDF::AheadLimits;
using NetCDF::ComingReads;
using support::NcMaker;

class AheadShapes : public NcTest, public testing::WithParamInterface<unsigned> {
 protected:
  using Place = NetCDF::Place;

  ~AheadShapes() override { NetCDF::forgetReads(); }

  std::size_t upTo(std::size_t most) { return 1 + random() % most; }
  bool oneIn(unsigned share) { return random() % share == 0; }

  // A variable of doubles, beyond the range of every other type here and there.
  void make() {
    NcMaker nc(file(), oneIn(3) ? 0 : NC_NETCDF4);
    rank = 2 + random() % 4;
    shape.clear();
    std::vector<int> dims;
    std::size_t count = 1;
    for (std::size_t d = 0; d < rank; ++d) {
      shape.push_back(upTo(d + 2 < rank ? 6 : 25));
      count *= shape.back();
      const bool grows = d == 0 && oneIn(3);
      dims.push_back(nc.dim("d" + std::to_string(d), grows ? NC_UNLIMITED : shape.back()));
    }
    const int v = nc.var("v", NC_DOUBLE, dims);
    if (oneIn(2)) {
      std::vector<std::size_t> chunk;
      for (const std::size_t length : shape) chunk.push_back(upTo(length));
      // Refused for a classic file, which has no chunks.
      nc_def_var_chunking(nc.id(), v, NC_CHUNKED, chunk.data());
      nc_def_var_deflate(nc.id(), v, 0, 1, 1);
    }
    std::vector<double> values(count);
    for (double& value : values) value = static_cast<double>(random() % 60000) - 30000;
    if (oneIn(3)) values[random() % count] = 1e300;
    nc.putSlab(v, std::vector<std::size_t>(rank, 0), shape, values);
  }

  // Legs in every direction, jumps, places twice; in a while one outside.
  std::vector<Place> path() {
    const auto inside = [&] {
      return Place{random() % shape[rank - 2], random() % shape[rank - 1]};
    };
    std::vector<Place> places = {inside()};
    const std::size_t count = upTo(80);
    while (places.size() < count) {
      Place next = places.back();
      next.row = std::min(next.row + random() % 2, shape[rank - 2] - 1);
      next.column -= std::min<std::size_t>(next.column, random() % 2);
      if (oneIn(10)) next = inside();
      places.push_back(next);
    }
    if (oneIn(5)) places[random() % count].row = shape[rank - 2];
    return places;
  }

  ComingReads coming(int set) {
    ComingReads reads;
    reads.ncid = set;
    reads.varid = 0;
    reads.rank = rank;
    reads.count.fill(1);
    for (std::size_t d = 0; d + 2 < rank; ++d) reads.start[d] = random() % shape[d];
    if (rank > 2) {
      const std::size_t deep = random() % (rank - 2);
      reads.start[deep] = 0;
      reads.count[deep] = shape[deep];
      // Beyond the variable's shape.
      if (oneIn(8)) ++reads.start[random() % (rank - 2)];
    }
    reads.places = path();
    return reads;
  }

  template <class Number>
  void expectTheBitsOfSingleReads(int (*NetCDF::EntryPoints::*entry)(int, int, const std::size_t*,
                                                                     const std::size_t*,
                                                                     const std::ptrdiff_t*,
                                                                     Number*)) {
    int set = -1;
    ASSERT_EQ(nc_open(file().c_str(), NC_NOWRITE, &set), NC_NOERR);
    const ComingReads reads = coming(set);
    const std::size_t room = std::size_t{1} << (7 + random() % 12);
    announceReads(reads, oneIn(2) ? AheadLimits{}
                                  : AheadLimits{.staged = room, .cache = room, .buffer = room,
                                                .buffers = room});
    std::size_t length = 1;
    for (std::size_t d = 0; d + 2 < rank; ++d) length *= reads.count[d];
    ComingReads::List<std::ptrdiff_t> stride;
    stride.fill(1);
    for (const Place place : reads.places) {
      ComingReads::List<std::size_t> start = reads.start;
      start[rank - 2] = place.row;
      start[rank - 1] = place.column;
      std::vector<Number> ahead(length), single(length);
      const auto read = [&](const NetCDF::EntryPoints& library, std::vector<Number>& values) {
        return (library.*entry)(set, 0, start.data(), reads.count.data(), stride.data(),
                                values.data());
      };
      const int status = read(NetCDF::bareLibrary(), single);
      ASSERT_EQ(read(NetCDF::library, ahead), status);
      if (status != NC_NOERR) continue;
      ASSERT_EQ(std::memcmp(ahead.data(), single.data(), length * sizeof(Number)), 0);
    }
    EXPECT_EQ(NetCDF::library.nc_close(set), NC_NOERR);
  }

  std::mt19937 random{GetParam()};
  std::size_t rank = 0;
  std::vector<std::size_t> shape;
};

TEST_P(AheadShapes, GiveTheBitsOfSingleReads) {
  using NetCDF::EntryPoints;
  for (int turn = 0; turn < 30; ++turn) {
    SCOPED_TRACE(turn);
    ASSERT_NO_FATAL_FAILURE(make());
    ASSERT_NO_FATAL_FAILURE(expectTheBitsOfSingleReads(&EntryPoints::nc_get_vars_short));
    ASSERT_NO_FATAL_FAILURE(expectTheBitsOfSingleReads(&EntryPoints::nc_get_vars_int));
    ASSERT_NO_FATAL_FAILURE(expectTheBitsOfSingleReads(&EntryPoints::nc_get_vars_float));
    ASSERT_NO_FATAL_FAILURE(expectTheBitsOfSingleReads(&EntryPoints::nc_get_vars_double));
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, AheadShapes, testing::Range(1U, 9U));

}  // namespace
