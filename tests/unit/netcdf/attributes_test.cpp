#include <limits>

#include "NcTest.h"

namespace {

using ocxNetNc::ncf;
using ocxNetNc::NcVar;
using support::NcMaker;

class AttributesTest : public NcTest {
 protected:
  // Catalogues a data set with one variable, whose attributes the maker writes.
  template <class Maker>
  const NcVar& variableWith(const Maker& make) {
    ocxNetNc::NcClose();
    {
      NcMaker nc(file());
      make(nc, nc.var("v", NC_FLOAT, {}));
      nc.close();
    }
    open(file());
    return ncf.NcVars(1);
  }
  const NcVar& variableWithNumber(const std::string& name, nc_type type,
                                  const std::vector<double>& values) {
    return variableWith([&](NcMaker& nc, int v) { nc.number(v, name, type, values); });
  }
  const NcVar& variableWithText(const std::string& name, const std::string& value) {
    return variableWith([&](NcMaker& nc, int v) { nc.text(v, name, value); });
  }
};

TEST_F(AttributesTest, SetTheFieldsTheirNamesBeginWith) {
  const struct {
    const char* name;
    nc_type type;
    std::vector<double> values;
    double NcVar::*field;
    double expected;
  } cases[] = {
      {"scale_factor", NC_FLOAT, {static_cast<double>(0.01F)}, &NcVar::Scale, 0.01},
      {"Scale", NC_SHORT, {2}, &NcVar::Scale, 2},
      {"SCALEX", NC_INT, {3}, &NcVar::Scale, 3},
      {"my_scale", NC_INT, {3}, &NcVar::Scale, 1},
      {"add_offset", NC_DOUBLE, {-5.5}, &NcVar::Offset, -5.5},
      {"Add_Offset_x", NC_INT, {1}, &NcVar::Offset, 1},
      {"offset", NC_INT, {1}, &NcVar::Offset, 0},
      {"missing_value", NC_FLOAT, {1e20}, &NcVar::Missing, 1e20},
      {"_FillValue", NC_FLOAT, {-127}, &NcVar::Missing, -127},
      {"fillvalue", NC_INT, {1}, &NcVar::Missing, 0},
      {"missing_value", NC_BYTE, {-127}, &NcVar::Missing, -127},
      {"missing_value", NC_FLOAT, {1e20, 2e20}, &NcVar::Missing, 1e20},
      {"missing_value", NC_DOUBLE, {std::numeric_limits<double>::quiet_NaN()}, &NcVar::Missing, 0},
      {"missing_value", NC_DOUBLE, {0.1}, &NcVar::Missing, 0.1},
      {"valid_range", NC_SHORT, {3, 30}, &NcVar::ValidMin, 3},
      {"valid_range", NC_SHORT, {3, 30}, &NcVar::ValidMax, 30},
      {"valid_min", NC_SHORT, {5}, &NcVar::ValidMin, 5},
      {"valid_min", NC_SHORT, {5}, &NcVar::ValidMax, 0},
  };
  for (const auto& c : cases) {
    const NcVar& variable = variableWithNumber(c.name, c.type, c.values);
    EXPECT_EQ(variable.*c.field, c.expected) << c.name;
  }
}

TEST_F(AttributesTest, TakeUnitAndLongNameAsTheyStand) {
  EXPECT_EQ(variableWithText("Units_long", "km").Unit, "km");
  EXPECT_EQ(variableWithText("units", " m s-1 ").Unit, " m s-1 ");
  EXPECT_EQ(variableWithText("uni", "km").Unit, "");
  EXPECT_EQ(variableWithText("long_name", "abc").LongName, "abc");
  EXPECT_EQ(variableWithText("LONG_NAME_EN", "abc").LongName, "abc");
  EXPECT_EQ(variableWithText("longname", "abc").LongName, "");
}

TEST_F(AttributesTest, ReadNumbersFromTexts) {
  EXPECT_EQ(variableWithText("scale_factor", " 0.5 per unit").Scale, 0.5);
  EXPECT_EQ(variableWithText("add_offset", "none").Offset, 0.0);
  const NcVar& variable = variableWithText("valid_range", "0, 10");
  EXPECT_EQ(variable.ValidMin, 0.0);
  EXPECT_EQ(variable.ValidMax, 10.0);
}

TEST_F(AttributesTest, LetTheLastOneReadWin) {
  const NcVar& variable = variableWith([](NcMaker& nc, int v) {
    nc.number(v, "_FillValue", NC_FLOAT, {-1});
    nc.number(v, "missing_value", NC_FLOAT, {-999});
    nc.number(v, "valid_min", NC_SHORT, {5});
    nc.number(v, "valid_max", NC_SHORT, {9});
  });
  EXPECT_EQ(variable.Missing, -999.0);
  EXPECT_EQ(variable.ValidMin, 9.0);
  EXPECT_EQ(variable.ValidMax, 0.0);
  const NcVar& reversed = variableWith([](NcMaker& nc, int v) {
    nc.number(v, "missing_value", NC_FLOAT, {-999});
    nc.number(v, "_FillValue", NC_FLOAT, {-1});
  });
  EXPECT_EQ(reversed.Missing, -1.0);
}

TEST_F(AttributesTest, HaveDefaultsWithoutAny) {
  const NcVar& variable = variableWith([](NcMaker&, int) {});
  EXPECT_EQ(variable.NAtts, 0);
  EXPECT_EQ(variable.Scale, 1.0);
  EXPECT_EQ(variable.Offset, 0.0);
  EXPECT_EQ(variable.Missing, 0.0);
  EXPECT_EQ(variable.ValidMin, 0.0);
  EXPECT_EQ(variable.ValidMax, 0.0);
  EXPECT_EQ(variable.Unit, "");
  EXPECT_EQ(variable.LongName, "");
}

TEST_F(AttributesTest, AreKeptAsTexts) {
  const struct {
    nc_type type;
    std::vector<double> values;
    const char* text;
  } cases[] = {
      {NC_BYTE, {-128, 0, 127}, "-128  0  127"},
      {NC_SHORT, {0, 30}, "0  30"},
      {NC_INT, {-2147483648.0, 2147483647.0}, "-2147483648  2147483647"},
      {NC_FLOAT, {static_cast<double>(0.1F), 1e20, 2.5}, "0.1  1E+20  2.5"},
      {NC_FLOAT, {static_cast<double>(0.90000004F)}, "0.90000004"},
      {NC_DOUBLE, {0.1 + 0.2, -1e300}, "0.30000000000000004  -1E+300"},
      {NC_BYTE, {}, ""},
      {NC_SHORT, {}, ""},
      {NC_INT, {}, ""},
      {NC_FLOAT, {}, ""},
      {NC_DOUBLE, {}, ""},
  };
  for (const auto& c : cases) {
    const NcVar& variable = variableWithNumber("a", c.type, c.values);
    EXPECT_EQ(variable.AttType[0], c.type);
    EXPECT_EQ(variable.AttValue[0], c.text);
  }
}

TEST_F(AttributesTest, EndAtTheFirstZeroByte) {
  EXPECT_EQ(variableWithText("a", std::string("ab\0cd", 5)).AttValue[0], "ab");
  EXPECT_EQ(variableWithText("a", std::string("ab\0", 3)).AttValue[0], "ab");
  EXPECT_EQ(variableWithText("a", "ab  ").AttValue[0], "ab  ");
  EXPECT_EQ(variableWithText("a", "").AttValue[0], "");
  EXPECT_EQ(variableWithText("a", std::string(100000, 'x')).AttValue[0].size(), 100000U);
}

TEST_F(AttributesTest, AreUtf8WhateverTheFileHolds) {
  EXPECT_EQ(variableWithText("units",
                             "\xC2\xB0"
                             "C")
                .Unit,
            "\xC2\xB0"
            "C");
  EXPECT_EQ(variableWithText("units",
                             "\xB0"
                             "C")
                .Unit,
            "\xC2\xB0"
            "C");
}

TEST_F(AttributesTest, SkipAnOpendapContainerWithoutType) {
  NcMaker nc(file());
  const int v = nc.var("v", NC_FLOAT, {});
  nc.text(v, "DODS", "hidden");
  nc.text(v, "units", "m");
  nc.close();
  NetCDF::library.nc_inq_att = [](int id, int var, const char* name, nc_type* type,
                                  std::size_t* length) {
    const int status = ::nc_inq_att(id, var, name, type, length);
    if (std::string(name) == "DODS") *type = NC_NAT;
    return status;
  };
  open(file());
  EXPECT_EQ(ncf.NcVars(1).NAtts, 2);
  EXPECT_EQ(ncf.NcVars(1).AttName[0], "DODS");
  EXPECT_EQ(ncf.NcVars(1).AttType[0], 0);
  EXPECT_EQ(ncf.NcVars(1).AttValue[0], "");
  EXPECT_EQ(ncf.NcVars(1).Unit, "m");
}

}  // namespace
