#include "netcdf/readAhead.h"

#include <algorithm>

#include "NcTest.h"
#include "ReadsBeneath.h"

namespace {

using NetCDF::AheadLimits;
using NetCDF::announceReads;
using NetCDF::ComingReads;
using NetCDF::Place;
using support::NcMaker;
using Read = ReadsBeneath::Read;

constexpr std::size_t kLevels = 6, kRows = 20, kColumns = 30;

// A variable v(time 2, level 6, row 20, column 30), of which value t, k, j, i is its place in the
// file, and a path through it.
class ReadAheadTest : public NcTest {
 protected:
  ~ReadAheadTest() override {
    NetCDF::forgetReads();
    if (set >= 0) nc_close(set);
  }
  // The chunk's lengths; none for a classic file.
  void make(const std::vector<std::size_t>& chunk = {}) {
    {
      NcMaker nc(file(), chunk.empty() ? 0 : NC_NETCDF4);
      const int t = nc.dim("t", 2), k = nc.dim("k", kLevels), j = nc.dim("j", kRows),
                i = nc.dim("i", kColumns);
      const int v = nc.var("v", NC_FLOAT, {t, k, j, i});
      if (!chunk.empty()) nc_def_var_chunking(nc.id(), v, NC_CHUNKED, chunk.data());
      std::vector<double> values(2 * kLevels * kRows * kColumns);
      for (std::size_t n = 0; n < values.size(); ++n) values[n] = static_cast<double>(n);
      nc.put(v, values);
    }
    ASSERT_EQ(nc_open(file().c_str(), NC_NOWRITE, &set), NC_NOERR);
  }
  ComingReads coming() const {
    ComingReads reads;
    reads.ncid = set;
    reads.varid = 0;
    reads.rank = 4;
    reads.start = {1, 0, 0, 0};
    reads.count = {1, kLevels, 1, 1};
    reads.places = path;
    return reads;
  }
  // What a read at a place gives; empty when the library refuses it.
  std::vector<float> ask(Place place, std::size_t level = 0, std::size_t levels = kLevels) {
    const std::size_t start[] = {1, level, place.row, place.column};
    const std::size_t count[] = {1, levels, 1, 1};
    const std::ptrdiff_t stride[] = {1, 1, 1, 1};
    std::vector<float> values(levels, -1);
    status = NetCDF::library.nc_get_vars_float(set, 0, start, count, stride, values.data());
    return status == NC_NOERR ? values : std::vector<float>();
  }
  static std::vector<float> expected(Place place, std::size_t level = 0,
                                     std::size_t levels = kLevels) {
    std::vector<float> values;
    for (std::size_t k = level; k < level + levels; ++k) {
      values.push_back(
          static_cast<float>(((kLevels + k) * kRows + place.row) * kColumns + place.column));
    }
    return values;
  }
  void expectPath() {
    for (const Place place : path) EXPECT_EQ(ask(place), expected(place));
  }

  int set = -1;
  int status = 0;
  std::vector<Place> path = {{0, 0}, {1, 2}, {2, 4}, {2, 5}, {9, 12}, {10, 15}, {19, 29}, {2, 5}};
  ReadsBeneath beneath;
};

TEST_F(ReadAheadTest, ReadsEveryChunkOnce) {
  make({1, 1, 10, 10});
  announceReads(coming());
  EXPECT_TRUE(beneath.reads.empty()) << "nothing is read before it is asked for";
  expectPath();
  const std::vector<Read> boxes = {{{1, 0, 0, 0}, {1, 6, 3, 6}},
                                   {{1, 0, 9, 12}, {1, 6, 1, 1}},
                                   {{1, 0, 10, 15}, {1, 6, 1, 1}},
                                   {{1, 0, 19, 29}, {1, 6, 1, 1}}};
  EXPECT_EQ(beneath.reads, boxes);
  EXPECT_TRUE(beneath.cache.empty()) << "the library's own cache is large enough";
}

TEST_F(ReadAheadTest, ReadsNeighboursInAFileTogether) {
  make();
  path.clear();
  for (std::size_t n = 0; n < kRows; ++n) path.push_back({n, n + 5});
  announceReads(coming());
  expectPath();
  EXPECT_EQ(beneath.reads, (std::vector<Read>{{{1, 0, 0, 5}, {1, 6, 20, 20}}}));
}

TEST_F(ReadAheadTest, ServesAnyOtherReadByItself) {
  make();
  announceReads(coming());
  EXPECT_EQ(ask({7, 7}), expected({7, 7}));
  EXPECT_EQ(ask(path[1]), expected(path[1])) << "not its turn";
  EXPECT_EQ(ask(path[0], 2, 3), expected(path[0], 2, 3));
  EXPECT_EQ(beneath.reads.size(), 3U);
  EXPECT_EQ(beneath.reads[2], (Read{{1, 2, 0, 0}, {1, 3, 1, 1}}));
  expectPath();
  const std::size_t before = beneath.reads.size();
  EXPECT_EQ(ask(path[0]), expected(path[0])) << "after the last";
  EXPECT_EQ(beneath.reads.size(), before + 1);
}

TEST_F(ReadAheadTest, EndsWithTheAnnouncement) {
  make();
  {
    const NetCDF::Announced announced([this] { return coming(); });
    EXPECT_EQ(ask(path[0]), expected(path[0]));
  }
  beneath.reads.clear();
  EXPECT_EQ(ask(path[1]), expected(path[1]));
  EXPECT_EQ(beneath.reads.size(), 1U);
  announceReads(coming());
  EXPECT_EQ(ask(path[0]), expected(path[0]));
  EXPECT_EQ(NetCDF::library.nc_close(set), NC_NOERR);
  ASSERT_EQ(nc_open(file().c_str(), NC_NOWRITE, &set), NC_NOERR);
  beneath.reads.clear();
  EXPECT_EQ(ask(path[1]), expected(path[1]));
  EXPECT_EQ(beneath.reads.size(), 1U);
}

TEST_F(ReadAheadTest, IsDoneWithoutWhereThereIsNoMemoryForTheAnnouncement) {
  make();
  announceReads(coming());
  const NetCDF::Announced announced([]() -> ComingReads { throw std::bad_alloc(); });
  expectPath();
  EXPECT_EQ(beneath.reads.size(), path.size());
}

TEST_F(ReadAheadTest, LeavesRefusalsToTheLibrary) {
  make({1, 1, 10, 10});
  path[3] = {2, kColumns};
  announceReads(coming());
  for (std::size_t n = 0; n < path.size(); ++n) {
    EXPECT_EQ(ask(path[n]), n == 3 ? std::vector<float>() : expected(path[n])) << n;
    EXPECT_EQ(status, n == 3 ? NC_EINVALCOORDS : NC_NOERR);
  }
  ComingReads deep = coming();
  deep.count[1] = kLevels + 1;
  announceReads(deep);
  EXPECT_EQ(ask(path[0], 0, kLevels + 1), std::vector<float>());
  EXPECT_EQ(status, NC_EEDGE);
}

TEST_F(ReadAheadTest, ReadsByItselfWhatCannotBeReadAhead) {
  make({1, 1, 10, 10});
  announceReads(coming());
  beneath.failing = 1;
  expectPath();
  EXPECT_EQ(beneath.reads[0].values(), 3 * 6 * kLevels);
  EXPECT_EQ(beneath.reads[1].values(), kLevels) << "the first place by itself";
  // The five reads of the first box, one of them at the path's end, and three boxes.
  EXPECT_EQ(beneath.reads.size(), 1U + 5U + 3U);
}

TEST_F(ReadAheadTest, TakesAServersFailureForThatOfTheRead) {
  make();
  beneath.passForAServer();
  for (const int failure : {NC_EDAPSVC, NC_EIO, 5}) {
    beneath.reads.clear();
    announceReads(coming());
    beneath.failing = 1;
    beneath.failure = failure;
    EXPECT_EQ(ask(path[0]), std::vector<float>());
    EXPECT_EQ(status, failure);
    EXPECT_EQ(beneath.reads.size(), 1U);
  }
  // A number between the reads that does not fit is none of theirs.
  beneath.reads.clear();
  announceReads(coming());
  beneath.failure = NC_ERANGE;
  expectPath();
}

TEST_F(ReadAheadTest, AsksAServerAFewTimesOnly) {
  make();
  path.clear();
  for (std::size_t n = 0; n < 600; ++n) path.push_back({n % kRows, n * 7 % kColumns});
  beneath.passForAServer();
  announceReads(coming());
  expectPath();
  EXPECT_LE(beneath.reads.size(), 7U);
}

TEST_F(ReadAheadTest, AsksAServerForNoMoreThanTheLimit) {
  make();
  path.clear();
  for (std::size_t n = 0; n < kRows; ++n) path.push_back({n, n + 5});
  beneath.passForAServer();
  AheadLimits limits;
  limits.request = 9 * 4 * kLevels;
  announceReads(coming(), limits);
  expectPath();
  EXPECT_GE(beneath.reads.size(), 7U);
  for (const Read& read : beneath.reads) EXPECT_LE(read.values(), 9 * kLevels);
}

// Whatever the limits are, the values are the same and the limits are kept.
TEST_F(ReadAheadTest, StaysWithinItsMemory) {
  path.clear();
  for (std::size_t n = 0; n < 200; ++n) path.push_back({n * 3 % kRows, n * n % kColumns});
  const std::vector<std::vector<std::size_t>> chunks = {
      {}, {1, 1, 20, 30}, {1, 6, 20, 30}, {2, 4, 7, 9}, {2, 6, 20, 30}, {1, 1, 2, 2}};
  for (const std::vector<std::size_t>& chunk : chunks) {
    if (set >= 0) nc_close(set);
    make(chunk);
    const std::size_t chunkBytes =
        chunk.empty() ? 0 : 4 * chunk[0] * chunk[1] * chunk[2] * chunk[3];
    for (const std::size_t bytes : {24U, 500U, 2500U, 20000U}) {
      SCOPED_TRACE(testing::Message() << chunkBytes << " in " << bytes);
      AheadLimits limits{.staged = bytes, .cache = bytes, .buffer = bytes, .buffers = bytes * 2};
      beneath.reads.clear();
      announceReads(coming(), limits);
      expectPath();
      if (bytes < 2 * 4 * kLevels) {
        EXPECT_EQ(beneath.reads.size(), path.size()) << "no room for two";
        continue;
      }
      const std::size_t room = chunk.empty() ? std::size_t{1} << 20
                               : chunkBytes > bytes ? limits.buffers : limits.buffer;
      for (const Read& read : beneath.reads) {
        EXPECT_TRUE(read.values() * 4 <= room || read.values() == 1);
      }
      if (chunk.empty()) continue;
      std::size_t cache = 0, slots = 0;
      float preemption = 0;
      ASSERT_EQ(nc_get_var_chunk_cache(set, 0, &cache, &slots, &preemption), NC_NOERR);
      EXPECT_LE(cache, limits.cache);
      if (chunkBytes > bytes) { EXPECT_EQ(cache, 0U) << "nothing is kept that cannot be kept"; }
    }
  }
}

// What a batch needs beside its values is much where there are few levels.
TEST_F(ReadAheadTest, CountsMoreThanTheValues) {
  make();
  path.clear();
  for (std::size_t n = 0; n < 70; ++n) path.push_back({n / kColumns, n % kColumns});
  AheadLimits limits;
  limits.staged = 70 * 4 * kLevels;
  announceReads(coming(), limits);
  expectPath();
  EXPECT_GE(beneath.reads.size(), 3U);
  EXPECT_LE(beneath.reads.size(), 20U);
}

TEST_F(ReadAheadTest, IsNotForASingleRead) {
  make({1, 1, 10, 10});
  path.resize(1);
  announceReads(coming());
  expectPath();
  EXPECT_EQ(beneath.reads, (std::vector<Read>{{{1, 0, 0, 0}, {1, 6, 1, 1}}}));
}

TEST_F(ReadAheadTest, LeavesVariablesAloneThatItDoesNotKnow) {
  make();
  NetCDF::beneath.nc_inq_format_extended = kRefusal;
  announceReads(coming());
  expectPath();
  EXPECT_EQ(beneath.reads.size(), path.size());
  NetCDF::beneath.nc_inq_format_extended = NetCDF::bareLibrary().nc_inq_format_extended;
  ComingReads other = coming();
  other.rank = 3;
  announceReads(other);
  expectPath();
}

}  // namespace
