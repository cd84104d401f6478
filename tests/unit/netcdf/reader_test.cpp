#include "netcdf/reader.h"

#include <cmath>
#include <limits>

#include "NcTest.h"
#include "netcdf/status.h"
#include "support/specialValues.h"
#include "util/lastError.h"

namespace {

using ocxNetNc::isAccepted;
using ocxNetNc::nc_get_varas_any;
using ocxNetNc::NcCount;
using ocxNetNc::ncf;
using ocxNetNc::NcStart;
using ocxNetNc::NcStride;
using support::NcMaker;

constexpr float kReplacement = -1e35F;
using support::kNan;

class ReaderTest : public NcTest {
 protected:
  void slab(std::vector<int32_t> start, std::vector<int32_t> count, std::vector<int32_t> stride) {
    NcStart = std::move(start);
    NcCount = std::move(count);
    NcStride = std::move(stride);
  }
  int32_t read(int32_t variable, int32_t count) {
    return nc_get_varas_any(ncf.NcId, variable, kReplacement, output, count);
  }
  std::vector<float> values() const { return {output.begin(), output.end()}; }

  // Opens a data set with the variable v and reads all its values.
  int32_t readAll(nc_type type, const std::vector<double>& raw, double missing = 0,
                  double scale = 1, double offset = 0) {
    ocxNetNc::NcClose();
    {
      NcMaker nc(file());
      const int dim = nc.dim("d", raw.size());
      const int v = nc.var("v", type, {dim});
      if (missing != 0) nc.number(v, "missing_value", NC_DOUBLE, {missing});
      if (scale != 1) nc.number(v, "scale_factor", NC_DOUBLE, {scale});
      if (offset != 0) nc.number(v, "add_offset", NC_DOUBLE, {offset});
      if (type != NC_CHAR) nc.put(v, raw);
      nc.close();
    }
    open(file());
    const auto count = static_cast<int32_t>(raw.size());
    slab({0}, {count}, {1});
    return read(1, count);
  }

  util::OneBased<float> output;
};

TEST_F(ReaderTest, AcceptsAndScalesRawValues) {
  const struct {
    double missing, raw, scale, offset;
    bool accepted;
    float stored;
  } cases[] = {
      {0, 0, 1, 0, true, 0},
      {0, 1e+36, 1, 0, true, 1e+36F},
      {1e+20, 9.9e+19, 1, 0, false, kReplacement},
      {1e+20, 9.8e+19, 1, 0, true, 9.8e+19F},
      {1e+20, -1e+30, 1, 0, true, -1e+30F},
      {-999, -989, 1, 0, true, -989},
      {-999, -990, 1, 0, false, kReplacement},
      {-999, -998, 1, 0, false, kReplacement},
      {-999, 5, 0.1, 2, true, 2.5F},
      {-32768, -32440, 0.01, 10, true, -314.4F},
      {32767, 32439, 0.001, 0, true, 32.439F},
      {32767, 32440, 0.001, 0, false, kReplacement},
      {-127, -125, 1, 0, true, -125},
      {100, 98, 1, 0, true, 98},
      {100, 99, 1, 0, false, kReplacement},
      {100, 250, 1, 0, false, kReplacement},
      {-1e+34, -9.9e+33, 1, 0, false, kReplacement},
  };
  for (const auto& c : cases) {
    for (const nc_type type : {NC_FLOAT, NC_DOUBLE}) {
      SCOPED_TRACE(c.raw);
      EXPECT_EQ(readAll(type, {c.raw}, c.missing, c.scale, c.offset), c.accepted ? 1 : 0);
      EXPECT_EQ(output(1), c.stored);
    }
  }
}

TEST_F(ReaderTest, ComparesInSinglePrecision) {
  // Apart as doubles, the same as singles.
  EXPECT_FALSE(isAccepted(16777215.6, 16777216.4));
  EXPECT_TRUE(isAccepted(16777214.0, 16777216.4));
  EXPECT_FALSE(isAccepted(-16777215.6, -16777216.4));
  // Beyond the single range a number compares as infinity.
  EXPECT_FALSE(isAccepted(1e300, 99));
  EXPECT_TRUE(isAccepted(-1e300, 99));
  EXPECT_FALSE(isAccepted(1e39, 1e300));
  EXPECT_TRUE(isAccepted(1e38, 1e300));
  EXPECT_TRUE(isAccepted(1e300, 0));
}

TEST_F(ReaderTest, TakesNaNOnlyWithoutAMissingValue) {
  EXPECT_FALSE(isAccepted(kNan, 99));
  EXPECT_FALSE(isAccepted(kNan, -99));
  for (const nc_type type : {NC_FLOAT, NC_DOUBLE}) {
    EXPECT_EQ(readAll(type, {kNan, 2}), 2);
    EXPECT_TRUE(std::isnan(output(1)));
    EXPECT_EQ(output(2), 2.0F);
    EXPECT_EQ(readAll(type, {kNan, 2}, 1e20), 1);
    EXPECT_EQ(values(), (std::vector<float>{kReplacement, 2}));
  }
}

TEST_F(ReaderTest, ReadsEveryNumberType) {
  for (const nc_type type : {NC_BYTE, NC_SHORT, NC_INT, NC_FLOAT, NC_DOUBLE}) {
    SCOPED_TRACE(type);
    EXPECT_EQ(readAll(type, {-100, 0, 100}, 0, 0.5, 1), 3);
    EXPECT_EQ(values(), (std::vector<float>{-49, 1, 51}));
  }
  EXPECT_EQ(readAll(NC_INT, {2147483647}), 1);
  EXPECT_EQ(output(1), 2147483648.0F);
}

TEST_F(ReaderTest, ReadsNoValueOfACharVariable) {
  output.assign(1, 5);
  EXPECT_EQ(readAll(NC_CHAR, {1, 2, 3}), 0);
  EXPECT_EQ(values(), (std::vector<float>{0, 0, 0}));
  EXPECT_TRUE(ocxNetNc::isOpen());
  EXPECT_EQ(util::LastError, "");
}

TEST_F(ReaderTest, ReadsAHyperslabInOneCall) {
  support::makeTinySet(file());
  open(file());
  static int calls;
  calls = 0;
  NetCDF::library.nc_get_vars_short = [](int id, int var, const std::size_t* start,
                                         const std::size_t* count, const std::ptrdiff_t* stride,
                                         short* into) {
    ++calls;
    return ::nc_get_vars_short(id, var, start, count, stride, into);
  };
  slab({0, 0, 2, 0}, {1, 3, 1, 3}, {1, 1, 1, 2});
  EXPECT_EQ(read(5, 9), 8);
  EXPECT_EQ(values(), (std::vector<float>{15.82F, 16.56F, 17.3F, 12.32F, 13.06F, 13.8F, 8.82F,
                                          9.56F, kReplacement}));
  EXPECT_EQ(calls, 1);
}

TEST_F(ReaderTest, ReadsAScalar) {
  {
    NcMaker nc(file());
    nc.put(nc.var("s", NC_INT, {}), {42});
    nc.close();
  }
  open(file());
  slab({}, {}, {});
  EXPECT_EQ(read(1, 1), 1);
  EXPECT_EQ(output(1), 42.0F);
}

TEST_F(ReaderTest, ChecksItsArgumentsInOrder) {
  ASSERT_EQ(readAll(NC_INT, {1, 2}), 2);
  EXPECT_EQ(nc_get_varas_any(-1, -1, 0, output, 0), -1);
  expectQuietFailure("[nc_get_varas_any] nvar_it < 0:");
  EXPECT_EQ(nc_get_varas_any(-1, 1, 0, output, 0), -1);
  expectQuietFailure("[nc_get_varas_any] ncfId& < 0:");
  EXPECT_EQ(nc_get_varas_any(ncf.NcId, 1, 0, output, 0), -1);
  expectQuietFailure("[nc_get_varas_any] tcount& <= 0:");
  EXPECT_EQ(output.size(), 2);
}

TEST_F(ReaderTest, RefusesForeignVariables) {
  for (const int32_t variable : {0, 2, INT32_MAX}) {
    ASSERT_EQ(readAll(NC_INT, {1, 2}), 2);
    EXPECT_EQ(read(variable, 2), -1);
    expectQuietFailure("[nc_get_varas_any] Error: Subscript out of range");
    EXPECT_FALSE(ocxNetNc::isOpen());
  }
}

TEST_F(ReaderTest, RefusesAHyperslabThatDoesNotFit) {
  const struct {
    std::vector<int32_t> start, count, stride;
    int32_t total;
  } cases[] = {
      {{0}, {2}, {1}, 3},         {{0}, {2}, {1}, 1},  {{0}, {0}, {1}, 1},
      {{0}, {-2}, {1}, 2},        {{-1}, {2}, {1}, 2}, {{0}, {2}, {0}, 2},
      {{0}, {2}, {-1}, 2},        {{}, {}, {}, 1},     {{0, 0}, {1, 2}, {1, 1}, 2},
      {{0}, {INT32_MAX}, {1}, 2}, {{0}, {2}, {}, 2},
  };
  for (const auto& c : cases) {
    ASSERT_EQ(readAll(NC_INT, {1, 2, 3}), 3);
    slab(c.start, c.count, c.stride);
    EXPECT_EQ(read(1, c.total), -1);
    expectQuietFailure("[nc_get_varas_any] Error: Subscript out of range");
  }
}

// The writer of a data set may replace it between the catalogue and a read.
TEST_F(ReaderTest, RefusesAVariableThatHasGrownDimensions) {
  ASSERT_EQ(readAll(NC_FLOAT, {1, 2}), 2);
  ocxNetNc::NcClose();
  {
    NcMaker nc(file());
    std::vector<int> dims;
    for (const char* name : {"a", "b", "c", "d", "e", "f"}) dims.push_back(nc.dim(name, 2));
    nc.put(nc.var("v", NC_FLOAT, dims), std::vector<double>(64, 1.0));
    nc.close();
  }
  ASSERT_EQ(ocxNetNc::NcReopen(1), 1);
  EXPECT_EQ(read(1, 2), -1);
  EXPECT_EQ(util::LastError, "[nc_get_varas_any] Error: Subscript out of range");
}

TEST_F(ReaderTest, RefusesTypesItCannotRead) {
  {
    NcMaker nc(file(), NC_NETCDF4);
    const int dim = nc.dim("d", 2);
    nc.var("big", NC_INT64, {dim});
  }
  open(file());
  slab({0}, {2}, {1});
  EXPECT_EQ(read(1, 2), -1);
  expectQuietFailure(
      "Variable-Type of Attribute not expected:\n\nVariable Name = big\n\nTyep Number = 10");
}

TEST_F(ReaderTest, OverflowsWhenAScaledValueLeavesTheSingleRange) {
  for (const double raw : {1e30, std::numeric_limits<double>::infinity()}) {
    EXPECT_EQ(readAll(NC_DOUBLE, {raw}, 0, 1e10), -1);
    expectQuietFailure("[nc_get_varas_any] Error: Overflow");
    EXPECT_FALSE(ocxNetNc::isOpen());
  }
  EXPECT_EQ(readAll(NC_FLOAT, {1e30}, 0, 1e10), -1);
  EXPECT_EQ(readAll(NC_DOUBLE, {1e300}), -1);
  EXPECT_EQ(readAll(NC_DOUBLE, {1e300}, 1e20), 0);
}

TEST_F(ReaderTest, ReportsReadsBeyondTheVariable) {
  ASSERT_EQ(readAll(NC_INT, {1, 2, 3}), 3);
  slab({9}, {1}, {1});
  EXPECT_EQ(read(1, 1), NC_EINVALCOORDS);
  expectLibraryFailure("NetCDF: Index exceeds dimension bound");
}

TEST_F(ReaderTest, ReportsWhateverTheLibraryRefuses) {
  const std::pair<nc_type, void (*)(NetCDF::EntryPoints&)> calls[] = {
      {NC_BYTE, [](auto& l) { l.nc_get_vars_short = kRefusal; }},
      {NC_SHORT, [](auto& l) { l.nc_get_vars_short = kRefusal; }},
      {NC_INT, [](auto& l) { l.nc_get_vars_int = kRefusal; }},
      {NC_FLOAT, [](auto& l) { l.nc_get_vars_float = kRefusal; }},
      {NC_DOUBLE, [](auto& l) { l.nc_get_vars_double = kRefusal; }}};
  for (const auto& [type, breakCall] : calls) {
    NetCDF::library = NetCDF::theLibrary();
    desktop.messages.clear();
    ASSERT_EQ(readAll(type, {1, 2}), 2);
    breakCall(NetCDF::library);
    const CloseCount closes;
    EXPECT_EQ(read(1, 2), NC_EHDFERR);
    expectLibraryFailure("NetCDF: HDF error");
    EXPECT_EQ(closes.calls, 1);
  }
}

TEST_F(ReaderTest, ReturnsPositiveStatusesNegated) {
  ASSERT_EQ(readAll(NC_INT, {1, 2}), 2);
  NetCDF::library.nc_get_vars_int = [](auto...) { return 5; };
  EXPECT_EQ(read(1, 2), -5);
  EXPECT_EQ(ncf.NcStatus, 5);
}

}  // namespace
