#include "netcdf/catalogue.h"

#include <cstring>

#include "NcTest.h"

namespace {

using ocxNetNc::FindAttribute;
using ocxNetNc::ncf;
using ocxNetNc::NcVar;
using ocxNetNc::OpenCatalogue;
using support::NcMaker;

class CatalogueTest : public NcTest {};

TEST_F(CatalogueTest, KeepsDimensionsInTheFilesOrder) {
  support::makeTinySet(file());
  open(file());
  ASSERT_EQ(ncf.NcNDims, 4);
  ASSERT_EQ(ncf.NcDims.size(), 4);
  EXPECT_EQ(ncf.NcUnlimDim, 0);
  const struct {
    const char* name;
    int32_t length, unlimited;
  } expected[] = {{"time", 2, 1}, {"depth", 3, 0}, {"lat", 4, 0}, {"lon", 6, 0}};
  int32_t position = 0;
  for (const auto& dimension : expected) {
    const ocxNetNc::NcDim& stored = ncf.NcDims(++position);
    EXPECT_EQ(stored.Name, dimension.name);
    EXPECT_EQ(stored.Length, dimension.length);
    EXPECT_EQ(stored.Unlimited, dimension.unlimited);
    EXPECT_EQ(stored.Reserved, 0);
  }
}

TEST_F(CatalogueTest, TrimsTheNamesOfDimensions) {
  NcMaker nc(file());
  const int dim = nc.dim("x", 2);
  nc.var("v", NC_INT, {dim});
  nc.close();
  NetCDF::library.nc_inq_dim = [](int id, int dimension, char* name, std::size_t* length) {
    const int status = ::nc_inq_dim(id, dimension, name, length);
    std::strcpy(name, "  x  ");
    return status;
  };
  open(file());
  ASSERT_EQ(ncf.NcDims.size(), 1);
  EXPECT_EQ(ncf.NcDims(1).Name, "x");
  EXPECT_EQ(ncf.NcDims(1).Length, 2);
  EXPECT_EQ(ncf.NcVars(1).DimName[0], "x");
}

TEST_F(CatalogueTest, KeepsVariablesWithTheirShapeAndAttributes) {
  support::makeTinySet(file());
  open(file());
  ASSERT_EQ(ncf.NcNVars, 7);
  ASSERT_EQ(ncf.NcVars.size(), 7);
  const NcVar& temp = ncf.NcVars(5);
  EXPECT_EQ(temp.Name, "temp");
  EXPECT_EQ(temp.LongName, " potential temperature ");
  EXPECT_EQ(temp.Unit, "degC");
  EXPECT_EQ(temp.Type, NC_SHORT);
  EXPECT_EQ(temp.NDims, 4);
  EXPECT_EQ(temp.DimId, (std::array<int32_t, 5>{0, 1, 2, 3, 0}));
  EXPECT_EQ(temp.DimName, (std::array<std::string, 5>{"time", "depth", "lat", "lon", ""}));
  EXPECT_EQ(temp.ElemSize, 2);
  EXPECT_EQ(temp.TotalBytes, 2.0 * 2 * 3 * 4 * 6);
  EXPECT_EQ(temp.NAtts, 5);
  EXPECT_EQ(temp.AttName[2], "scale_factor");
  EXPECT_EQ(temp.AttType[2], NC_FLOAT);
  EXPECT_EQ(temp.AttValue[2], "0.01");
  EXPECT_EQ(temp.Scale, 0.01);
  EXPECT_EQ(temp.Offset, 10.0);
  EXPECT_EQ(temp.Missing, -32768.0);
  EXPECT_EQ(temp.dimensionAt(1), 1);
  EXPECT_EQ(temp.dimensionAt(7), -1);

  const NcVar& zeta = ncf.NcVars(6);
  EXPECT_EQ(zeta.NDims, 3);
  EXPECT_EQ(zeta.Scale, 1.0);
  EXPECT_EQ(zeta.Offset, 0.0);
  EXPECT_EQ(zeta.Missing, 0.0);
  EXPECT_EQ(zeta.LongName, "");
}

TEST_F(CatalogueTest, KeepsGlobalAttributes) {
  NcMaker nc(file());
  nc.text(NC_GLOBAL, "title", "a run");
  nc.number(NC_GLOBAL, "version", NC_INT, {1, 2});
  nc.close();
  open(file());
  ASSERT_EQ(ncf.NcNGAtts, 2);
  EXPECT_EQ(ncf.NcGAttName(1), "title");
  EXPECT_EQ(ncf.NcGAttType(1), NC_CHAR);
  EXPECT_EQ(ncf.NcGAttValue(1), "a run");
  EXPECT_EQ(ncf.NcGAttName(2), "version");
  EXPECT_EQ(ncf.NcGAttType(2), NC_INT);
  EXPECT_EQ(ncf.NcGAttValue(2), "1  2");
}

TEST_F(CatalogueTest, StaysOpenUnlessAskedToClose) {
  support::makeTinySet(file());
  EXPECT_EQ(OpenCatalogue(file(), 0), 1);
  EXPECT_TRUE(ocxNetNc::isOpen());
  EXPECT_EQ(ncf.NcFileName, file());
  EXPECT_EQ(ncf.NcStatus, 0);
  EXPECT_EQ(OpenCatalogue(file(), 1), 1);
  EXPECT_FALSE(ocxNetNc::isOpen());
  EXPECT_EQ(ncf.NcVars.size(), 7);
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(CatalogueTest, ClosesTheDataSetThatIsStillOpen) {
  support::makeTinySet(file());
  open(file());
  const CloseCount closes;
  open(file());
  EXPECT_EQ(closes.calls, 1);
  ocxNetNc::NcClose();
  ocxNetNc::NcClose();
  EXPECT_EQ(closes.calls, 2);
}

TEST_F(CatalogueTest, ReplacesTheCatalogueOfThePreviousDataSet) {
  support::makeTinySet(file());
  open(file());
  NcMaker nc(file("other.nc"));
  nc.var("only", NC_INT, {});
  nc.close();
  open(file("other.nc"));
  EXPECT_EQ(ncf.NcDims.size(), 0);
  EXPECT_EQ(ncf.NcUnlimDim, -1);
  ASSERT_EQ(ncf.NcVars.size(), 1);
  EXPECT_EQ(ncf.NcVars(1).Name, "only");
  EXPECT_EQ(ncf.NcVars(1).NDims, 0);
  EXPECT_EQ(ncf.NcVars(1).TotalBytes, 4.0);
  EXPECT_EQ(ncf.NcNGAtts, 0);
  EXPECT_EQ(FindAttribute("title", ""), "");
}

TEST_F(CatalogueTest, KnowsTheElementSizesOfTheClassicTypes) {
  NcMaker nc(file());
  const int dim = nc.dim("d", 3);
  const int32_t sizes[] = {1, 1, 2, 4, 4, 8};
  for (int type = NC_BYTE; type <= NC_DOUBLE; ++type) {
    nc.var("v" + std::to_string(type), type, {dim});
  }
  nc.close();
  open(file());
  for (int32_t type = 1; type <= 6; ++type) {
    EXPECT_EQ(ncf.NcVars(type).Type, type);
    EXPECT_EQ(ncf.NcVars(type).ElemSize, sizes[type - 1]);
    EXPECT_EQ(ncf.NcVars(type).TotalBytes, 3.0 * sizes[type - 1]);
  }
}

TEST_F(CatalogueTest, CataloguesVariablesOfNewerTypesWithoutASize) {
  NcMaker nc(file(), NC_NETCDF4);
  const int dim = nc.dim("d", 3);
  for (int type = NC_UBYTE; type <= NC_STRING; ++type) {
    nc.var("v" + std::to_string(type), type, {dim});
  }
  nc.close();
  open(file());
  ASSERT_EQ(ncf.NcVars.size(), 6);
  for (int32_t number = 1; number <= 6; ++number) {
    EXPECT_EQ(ncf.NcVars(number).Type, number + 6);
    EXPECT_EQ(ncf.NcVars(number).ElemSize, 0);
    EXPECT_EQ(ncf.NcVars(number).TotalBytes, 0.0);
  }
}

TEST_F(CatalogueTest, SeesTheRootGroupAlone) {
  {
    NcMaker nc(file(), NC_NETCDF4);
    const int dim = nc.dim("d", 3);
    nc.var("outer", NC_INT, {dim});
    int group = 0, inner = 0;
    ASSERT_EQ(nc_def_grp(nc.id(), "g", &group), NC_NOERR);
    ASSERT_EQ(nc_def_var(group, "inner", NC_INT, 1, &dim, &inner), NC_NOERR);
  }
  open(file());
  ASSERT_EQ(ncf.NcVars.size(), 1);
  EXPECT_EQ(ncf.NcVars(1).Name, "outer");
}

TEST_F(CatalogueTest, MultipliesShapesBeyondThirtyTwoBits) {
  NcMaker nc(file());
  const int a = nc.dim("a", 2);
  const int b = nc.dim("b", 2);
  nc.var("huge", NC_BYTE, {a, b});
  nc.close();
  NetCDF::library.nc_inq_dim = [](int id, int dim, char* name, std::size_t* length) {
    const int status = ::nc_inq_dim(id, dim, name, length);
    *length = 70000;
    return status;
  };
  open(file());
  EXPECT_EQ(ncf.NcVars(1).TotalBytes, 4.9e9);
}

TEST_F(CatalogueTest, FindsAttributesByTheirExactName) {
  NcMaker nc(file());
  nc.text(NC_GLOBAL, "title", "global");
  const int v = nc.var("v", NC_INT, {});
  nc.text(v, "title", "of v");
  nc.number(v, "n", NC_DOUBLE, {0.5, -2});
  nc.close();
  open(file());
  EXPECT_EQ(FindAttribute("title", ""), "global");
  EXPECT_EQ(FindAttribute("title", "v"), "of v");
  EXPECT_EQ(FindAttribute("n", "v"), "0.5  -2");
  EXPECT_EQ(FindAttribute("Title", ""), "");
  EXPECT_EQ(FindAttribute("titl", "v"), "");
  EXPECT_EQ(FindAttribute("title", "V"), "");
  EXPECT_EQ(FindAttribute("title", "w"), "");
}

}  // namespace
