#include "netcdf/identify.h"

#include "NcTest.h"
#include "util/RuntimeError.h"

namespace {

using ocxNetNc::GridOrder;
using ocxNetNc::IdentifyCoordinates;
using ocxNetNc::ncf;
using ocxNetNc::Ncf;
using ocxNetNc::NcVar;

struct Variable {
  std::string name;
  std::vector<int32_t> dims;
  std::string unit = "";
  std::string unitName = "units";
};

// A catalogue as an opening would make it.
void catalogue(const std::vector<std::string>& dims, const std::vector<Variable>& variables) {
  ncf.NcDims.clear();
  ncf.NcVars.clear();
  for (const std::string& name : dims) {
    ncf.NcDims.push({.Name = name, .Length = 2, .Unlimited = 0, .Reserved = 0});
  }
  for (const Variable& variable : variables) {
    NcVar record;
    record.Name = variable.name;
    record.NDims = static_cast<int32_t>(variable.dims.size());
    for (std::size_t i = 0; i < variable.dims.size(); ++i) {
      record.DimId[i] = variable.dims[i];
      record.DimName[i] = dims[static_cast<std::size_t>(variable.dims[i])];
    }
    if (!variable.unit.empty()) {
      record.NAtts = 2;
      record.AttName[0] = "comment";
      record.AttValue[0] = "degrees";
      record.AttName[1] = variable.unitName;
      record.AttValue[1] = variable.unit;
    }
    ncf.NcVars.push(record);
  }
  ncf.NcNDims = ncf.NcDims.size();
  ncf.NcNVars = ncf.NcVars.size();
}

class IdentifyTest : public NcTest {
 protected:
  // Exactly the named fields are set, all others are as after a reset.
  void expectFound(const Ncf& expected) {
    EXPECT_EQ(ncf.lon_dId, expected.lon_dId);
    EXPECT_EQ(ncf.lat_dId, expected.lat_dId);
    EXPECT_EQ(ncf.time_dId, expected.time_dId);
    EXPECT_EQ(ncf.level_dId, expected.level_dId);
    EXPECT_EQ(ncf.lon_vId, expected.lon_vId);
    EXPECT_EQ(ncf.lat_vId, expected.lat_vId);
    EXPECT_EQ(ncf.time_vId, expected.time_vId);
    EXPECT_EQ(ncf.level_vId, expected.level_vId);
    EXPECT_EQ(ncf.ncell_dId, expected.ncell_dId);
    EXPECT_EQ(ncf.icell_dId, expected.icell_dId);
    EXPECT_EQ(ncf.jcell_dId, expected.jcell_dId);
    EXPECT_EQ(ncf.kcell_dId, expected.kcell_dId);
    EXPECT_EQ(ncf.has_time, expected.has_time);
    EXPECT_EQ(ncf.has_level, expected.has_level);
    EXPECT_EQ(ncf.grid_order, expected.grid_order);
    EXPECT_EQ(util::LastError, "");
  }
};

struct Case {
  const char* what;
  std::vector<std::string> dims;
  std::vector<Variable> variables;
  int32_t result;
  void (*expect)(Ncf&);
};

const Case kCases[] = {
    {"directed units find axes of any name; z is taken before depth",
     {"t", "z", "y", "x"},
     {{"x", {3}, "degree_east"},
      {"y", {2}, "degree_north"},
      {"z", {1}},
      {"depth", {1}},
      {"v", {0, 1, 2, 3}}},
     1,
     [](Ncf& n) {
       n.lon_dId = 3, n.lat_dId = 2, n.level_dId = 1, n.has_level = 1;
       n.lon_vId = 1, n.lat_vId = 2, n.level_vId = 3;
     }},
    {"coordinates in two dimensions make a grid of cells",
     {"eta_rho", "xi_rho", "s"},
     {{"lon_rho", {0, 1}, "degree_east"}, {"lat_rho", {0, 1}, "degree_north"}, {"sigma", {2}}},
     1,
     [](Ncf& n) {
       n.icell_dId = 1, n.level_dId = 2, n.grid_order = 0, n.has_level = 1;
       n.lon_vId = 1, n.lat_vId = 2, n.level_vId = 3;
     }},
    {"a one-letter name overrides ICELL",
     {"ICELL", "XC", "JCELL"},
     {{"lon", {0, 2}, "degrees_east"}, {"lat", {0, 2}, "degrees_north"}},
     1,
     [](Ncf& n) {
       n.icell_dId = 1, n.jcell_dId = 2, n.grid_order = 0, n.lon_vId = 1, n.lat_vId = 2;
     }},
    {"the last of several cell dimensions wins",
     {"xa", "xb", "ya", "yb", "zeta", "ICEL"},
     {{"lon", {0, 2}, "degrees_east"}, {"lat", {0, 2}, "degrees_north"}},
     1,
     [](Ncf& n) {
       n.icell_dId = 1, n.jcell_dId = 3, n.kcell_dId = 4, n.grid_order = 0;
       n.lon_vId = 1, n.lat_vId = 2;
     }},
    {"a list of cells",
     {"nod", "NCells", "x"},
     {{"lon_c", {1}, "degrees_east"}, {"lat_c", {1}, "degrees_north"}, {"time", {0}}},
     1,
     [](Ncf& n) {
       n.ncell_dId = 1, n.grid_order = 0, n.lon_vId = 1, n.lat_vId = 2;
       n.time_dId = 0, n.time_vId = 3, n.has_time = 1;
     }},
    {"cells take any variable of the name with a unit of degrees",
     {"x", "y"},
     {{"longest", {0, 1}, "degrees"},
      {"lam", {0, 1}, "degrees_east"},
      {"phi", {0, 1}, "degrees_north"}},
     1,
     [](Ncf& n) {
       n.icell_dId = 0, n.jcell_dId = 1, n.grid_order = 0, n.lon_vId = 1, n.lat_vId = 3;
     }},
    {"no i axis",
     {"node"},
     {{"lon", {0}, "degrees_east"}, {"lat", {0}, "degrees_north"}},
     -3,
     [](Ncf& n) { n.lon_vId = 1, n.lat_vId = 2; }},
    {"names differ from their dimensions in case; a two-dimensional time is none",
     {"time", "depth", "lat", "lon"},
     {{"time", {0, 1}},
      {"Times", {0}},
      {"DEPTH_t", {1}},
      {"Lat", {2}, "degrees_north"},
      {"Lon", {3}, "degrees_east"}},
     -3,
     [](Ncf& n) { n.time_dId = 0, n.lon_vId = 5, n.lat_vId = 4, n.time_vId = 2; }},
    {"undirected degrees are enough for named axes",
     {"time", "depth", "lat", "lon"},
     {{"lat", {2}, "Degrees"}, {"lon", {3}, "DEGREES"}, {"level", {1}}},
     1,
     [](Ncf& n) {
       n.lon_dId = 3, n.lat_dId = 2, n.level_dId = 1, n.has_level = 1;
       n.lon_vId = 2, n.lat_vId = 1, n.level_vId = 3;
     }},
    {"lev is no vertical axis",
     {"lon", "lat", "lev"},
     {{"lon", {0}, "degrees_east"}, {"lat", {1}, "degrees_north"}, {"lev", {2}}, {"a", {0, 1, 2}}},
     1,
     [](Ncf& n) { n.lon_dId = 0, n.lat_dId = 1, n.lon_vId = 1, n.lat_vId = 2; }},
    {"the first of several vertical variables",
     {"time", "depth", "lat", "lon"},
     {{"depth", {1}}, {"level", {1}}, {"lat", {2}, "degrees_north"}, {"lon", {3}, "degrees_east"}},
     1,
     [](Ncf& n) {
       n.lon_dId = 3, n.lat_dId = 2, n.level_dId = 1, n.has_level = 1;
       n.lon_vId = 4, n.lat_vId = 3, n.level_vId = 1;
     }},
    {"a layer, and a vertical variable of two dimensions before it",
     {"lon", "lat", "k"},
     {{"zt", {2, 1}}, {"Layers", {2}}, {"lon", {0}, "degrees_east"}, {"lat", {1}, "degrees_north"}},
     1,
     [](Ncf& n) {
       n.lon_dId = 0, n.lat_dId = 1, n.level_dId = 2, n.has_level = 1;
       n.lon_vId = 3, n.lat_vId = 4, n.level_vId = 2;
     }},
    {"directed units of any case with more behind them, in an attribute that begins with unit",
     {"a", "b"},
     {{"a", {0}, "Degree East"}, {"b", {1}, "degrees NORTHWARD", "UNIT_OF"}},
     1,
     [](Ncf& n) { n.lon_dId = 0, n.lat_dId = 1, n.lon_vId = 1, n.lat_vId = 2; }},
    {"a named axis goes before an earlier one that has the unit alone",
     {"x", "lon", "y", "lat"},
     {{"x", {0}, "degrees_east"},
      {"lon", {1}, "degrees"},
      {"y", {2}, "degrees_north"},
      {"lat", {3}, "degrees"}},
     1,
     [](Ncf& n) { n.lon_dId = 1, n.lat_dId = 3, n.lon_vId = 2, n.lat_vId = 4; }},
    {"cells in layers of their own",
     {"KCELL", "ICELL", "JCELL"},
     {{"lon", {2, 1}, "degrees_east"}, {"lat", {2, 1}, "degrees_north"}},
     1,
     [](Ncf& n) {
       n.kcell_dId = 0, n.icell_dId = 1, n.jcell_dId = 2, n.grid_order = 0;
       n.lon_vId = 1, n.lat_vId = 2;
     }},
    {"a name alone is no longitude",
     {"lon", "lat"},
     {{"lon", {0}}, {"lat", {1}, "degrees_north"}},
     -1,
     [](Ncf&) {}},
    {"a named latitude needs no direction",
     {"lon", "lat"},
     {{"lon", {0}, "degrees_east"}, {"lat", {1}, "degrees_south"}, {"time", {0}}},
     1,
     [](Ncf& n) {
       n.lon_dId = 0, n.lat_dId = 1, n.lon_vId = 1, n.lat_vId = 2;
       n.time_dId = 0, n.time_vId = 3, n.has_time = 1;
     }},
    {"a latitude in radians is none",
     {"lon", "lat"},
     {{"lon", {0}, "degrees_east"}, {"lat", {1}, "radians"}},
     -1,
     [](Ncf& n) { n.lon_dId = 0, n.lon_vId = 1; }},
    {"nothing at all", {}, {}, -1, [](Ncf&) {}},
};

TEST_F(IdentifyTest, FindsAxesByNameUnitAndShape) {
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.what);
    ncf = {};
    catalogue(c.dims, c.variables);
    EXPECT_EQ(IdentifyCoordinates(), c.result);
    Ncf expected;
    c.expect(expected);
    expectFound(expected);
  }
}

TEST_F(IdentifyTest, KnowsEverySpellingOfTheDirectedUnits) {
  for (const std::string degrees : {"degrees_", "degrees ", "degree_", "degree "}) {
    SCOPED_TRACE(degrees);
    const Variable east{"a", {0}, degrees + "east"}, north{"b", {1}, degrees + "north"};
    ncf = {};
    catalogue({"a", "b"}, {east, north});
    EXPECT_EQ(IdentifyCoordinates(), 1);
    Ncf expected;
    expected.lon_dId = 0, expected.lat_dId = 1, expected.lon_vId = 1, expected.lat_vId = 2;
    expectFound(expected);
  }
  for (const std::string unit : {"degrees", "degreeseast", "degrees-east", "deg_east", "east"}) {
    SCOPED_TRACE(unit);
    ncf = {};
    catalogue({"a", "b"}, {{"a", {0}, unit}, {"b", {1}, "degrees_north"}});
    EXPECT_EQ(IdentifyCoordinates(), -1);
  }
}

TEST_F(IdentifyTest, KeepsVariableNumbersOfAnEarlierDataSetAlone) {
  ncf.time_vId = 7;
  ncf.level_vId = 8;
  ncf.time_dId = 3;
  ncf.has_time = 1;
  ncf.grid_order = 2;
  catalogue({"lat", "lon"}, {{"lat", {0}, "degrees_north"}, {"lon", {1}, "degrees_east"}});
  EXPECT_EQ(IdentifyCoordinates(), 1);
  EXPECT_EQ(ncf.time_vId, 7);
  EXPECT_EQ(ncf.level_vId, 8);
  EXPECT_EQ(ncf.time_dId, -1);
  EXPECT_EQ(ncf.has_time, -1);
  EXPECT_EQ(ncf.grid_order, -1);
}

TEST_F(IdentifyTest, IdentifiesTheTinySet) {
  support::makeTinySet(file());
  open(file());
  EXPECT_EQ(IdentifyCoordinates(), 1);
  Ncf expected;
  expected.lon_dId = 3, expected.lat_dId = 2, expected.level_dId = 1, expected.time_dId = 0;
  expected.time_vId = 1, expected.level_vId = 2, expected.lat_vId = 3, expected.lon_vId = 4;
  expected.has_time = expected.has_level = 1;
  expectFound(expected);
}

TEST_F(IdentifyTest, OrdersTheHorizontalDimensions) {
  const struct {
    int32_t gridOrder, cellList;
    std::vector<int32_t> dims;
    int32_t order;
  } cases[] = {
      {-1, -1, {0, 1, 2, 3}, 2}, {-1, -1, {0, 1, 3, 2}, 1}, {-1, -1, {2, 3}, 2},
      {-1, -1, {0, 1, 2}, -1},   {-1, -1, {3}, -1},         {-1, -1, {}, -1},
      {0, -1, {0, 1, 2, 3}, 2},  {0, 0, {0, 1, 2, 3}, 0},   {-1, -1, {2, 3, 1}, -1},
      {2, -1, {0, 3, 2}, 1},
  };
  for (const auto& c : cases) {
    catalogue({"time", "depth", "lat", "lon"}, {{"v", c.dims}});
    ncf.lon_dId = 3;
    ncf.lat_dId = 2;
    ncf.grid_order = c.gridOrder;
    ncf.ncell_dId = c.cellList;
    EXPECT_EQ(GridOrder(1), c.order);
    EXPECT_EQ(ncf.grid_order, c.gridOrder);
  }
  ncf.ncell_dId = -1;
  EXPECT_THROW(GridOrder(0), util::RuntimeError);
  EXPECT_THROW(GridOrder(2), util::RuntimeError);
}

}  // namespace
