#include <filesystem>
#include <fstream>

#include "NcTest.h"

namespace {

using ocxNetNc::ncf;
using ocxNetNc::OpenCatalogue;
using support::NcMaker;

class OpenFailuresTest : public NcTest {
 protected:
  void expectOpens(const std::string& path) {
    EXPECT_EQ(OpenCatalogue(path, 0), 1) << util::LastError;
    ocxNetNc::NcClose();
  }
  // A rule of ours is broken: the text, no box, nothing left open.
  void expectRefused(const std::string& path, const std::string& text) {
    EXPECT_EQ(OpenCatalogue(path, 0), -1);
    expectQuietFailure(text);
    EXPECT_FALSE(ocxNetNc::isOpen());
  }
  void write(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
  }
};

TEST_F(OpenFailuresTest, NamesAMissingFile) {
  EXPECT_EQ(OpenCatalogue(file("none.nc"), 0), -1);
  expectLibraryFailure("No such file or directory");
  EXPECT_EQ(ncf.NcStatus, 2);
  EXPECT_EQ(ncf.NcFileName, file("none.nc"));
}

TEST_F(OpenFailuresTest, NamesAFileOfAnotherFormat) {
  for (const std::string& bytes :
       {std::string("just a text file\n"), std::string(), std::string("CDF"),
        std::string("CDF\x09 other version of the format")}) {
    desktop.messages.clear();
    write(file(), bytes);
    EXPECT_EQ(OpenCatalogue(file(), 0), -1);
    expectLibraryFailure("NetCDF: Unknown file format");
  }
}

TEST_F(OpenFailuresTest, SurvivesFoldersAndEmptyNames) {
  for (const std::string& name : {folder.path().string(), std::string()}) {
    desktop.messages.clear();
    EXPECT_EQ(OpenCatalogue(name, 0), -1);
    EXPECT_NE(util::LastError, "");
    expectLibraryFailure(util::LastError);
  }
}

TEST_F(OpenFailuresTest, SurvivesEveryTruncationOfTheHeader) {
  support::makeTinySet(file("whole.nc"));
  std::string bytes(static_cast<std::size_t>(std::filesystem::file_size(file("whole.nc"))), '\0');
  std::ifstream(file("whole.nc"), std::ios::binary)
      .read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  // A header takes less than the first 1200 bytes.
  for (std::size_t length = 0; length < 1200; length += 7) {
    util::LastError.clear();
    write(file(), bytes.substr(0, length));
    EXPECT_EQ(OpenCatalogue(file(), 1), -1) << length;
    EXPECT_NE(util::LastError, "") << length;
    EXPECT_FALSE(ocxNetNc::isOpen()) << length;
  }
}

TEST_F(OpenFailuresTest, RefusesAFileThatEndsBeforeItsData) {
  support::makeTinySet(file());
  open(file());
  ocxNetNc::NcClose();
  std::filesystem::resize_file(file(), std::filesystem::file_size(file()) - 1);
  expectRefused(file(), "[OpenCatalogue] Error: Input past end of file");
  EXPECT_EQ(ocxNetNc::NcReopen(1), -1);
  expectQuietFailure("[NcReopen] Error: Input past end of file");
}

TEST_F(OpenFailuresTest, RefusesABrokenHeaderWithoutAskingTheLibrary) {
  write(file(), std::string("CDF\x01\0\0\0\0\0\0\0\x0A\0", 13));
  NetCDF::library.nc_open = [](auto...) {
    ADD_FAILURE() << "opened";
    return NC_ENOTNC;
  };
  EXPECT_EQ(OpenCatalogue(file(), 0), -1);
  expectLibraryFailure("NetCDF: Unknown file format");
}

TEST_F(OpenFailuresTest, LimitsNamesTo45Bytes) {
  const std::string fits(45, 'n');
  const std::string tooLong(46, 'n');
  enum class Place { Dimension, Variable, Attribute, Global };
  const std::pair<Place, const char*> places[] = {
      {Place::Dimension, "in reading dimension name"},
      {Place::Variable, "in reading variable name"},
      {Place::Attribute, "in reading attribute name"},
      {Place::Global, "in reading Global attributes name"}};
  for (const auto& [place, whenReading] : places) {
    SCOPED_TRACE(whenReading);
    const auto make = [&, at = place](const std::string& name) {
      NcMaker nc(file());
      nc.dim(at == Place::Dimension ? name : "d", 2);
      const int v = nc.var(at == Place::Variable ? name : "v", NC_INT, {0});
      nc.text(v, at == Place::Attribute ? name : "a", "x");
      nc.text(NC_GLOBAL, at == Place::Global ? name : "g", "x");
      nc.close();
    };
    make(fits);
    expectOpens(file());
    make(tooLong);
    expectRefused(file(), tooLong + " nc& > 45 " + whenReading);
  }
}

TEST_F(OpenFailuresTest, CountsTheStoredBytesOfAName) {
  std::string name;
  for (int i = 0; i < 23; ++i) name += "\xC3\xA4";
  NcMaker nc(file());
  nc.dim(name, 2);
  nc.close();
  expectRefused(file(), name + " nc& > 45 in reading dimension name");
}

TEST_F(OpenFailuresTest, LimitsVariablesToFiveDimensions) {
  for (const int rank : {5, 6}) {
    NcMaker nc(file());
    std::vector<int> dims;
    for (int i = 0; i < rank; ++i) dims.push_back(nc.dim("d" + std::to_string(i), 2));
    nc.var("field", NC_INT, dims);
    nc.close();
    if (rank == 5) {
      expectOpens(file());
      EXPECT_EQ(ncf.NcVars(1).DimName[4], "d4");
      EXPECT_EQ(ncf.NcVars(1).TotalBytes, 4.0 * 32);
    } else {
      expectRefused(file(),
                    "Array dimension exceeds the limit(=5) for\n\nVariable: field\n\n"
                    "dimension = 6");
    }
  }
}

TEST_F(OpenFailuresTest, LimitsVariablesToFifteenAttributes) {
  for (const int count : {15, 16}) {
    NcMaker nc(file());
    const int v = nc.var("field", NC_INT, {});
    for (int i = 0; i < count; ++i) {
      nc.text(v, "a" + std::to_string(i), "x");
      nc.text(NC_GLOBAL, "g" + std::to_string(i), "x");
    }
    nc.text(NC_GLOBAL, "title", "global attributes have no limit");
    nc.close();
    if (count == 15) {
      expectOpens(file());
      EXPECT_EQ(ncf.NcVars(1).AttName[14], "a14");
      EXPECT_EQ(ncf.NcGAttName.size(), 16);
    } else {
      expectRefused(file(),
                    "Number of attribute exceeds the limit(=15) for\n\nVariable: field\n\n"
                    "Number of attribute = 16");
    }
  }
}

TEST_F(OpenFailuresTest, LimitsGlobalAttributesTo8192) {
  for (const int count : {8192, 8193}) {
    {
      NcMaker nc(file());
      for (int i = 0; i < count; ++i) nc.text(NC_GLOBAL, "a" + std::to_string(i), "x");
      nc.close();
    }
    EXPECT_EQ(OpenCatalogue(file(), 1), count == 8192 ? 1 : -1);
  }
  EXPECT_EQ(util::LastError, "[OpenCatalogue] Error: Out of memory");
}

TEST_F(OpenFailuresTest, RefusesAttributesOfNewerTypes) {
  for (int type = NC_UBYTE; type <= NC_UINT64; ++type) {
    const std::string number = std::to_string(type);
    {
      NcMaker nc(file(), NC_NETCDF4);
      nc.number(nc.var("v", NC_INT, {}), "att", type, {1});
    }
    expectRefused(file(),
                  "Variable-Type of Attribute not expected:\n\nVariable Name = v\n\n"
                  "Attribute Name = att\n\nType Number = " +
                      number);
    {
      NcMaker nc(file(), NC_NETCDF4);
      nc.number(NC_GLOBAL, "att", type, {1});
    }
    expectRefused(file(),
                  "Variable-Type of Attribute not expected:\n\nVariable Name = \n\n"
                  "Attribute Name = att\n\nTyep Number = " +
                      number);
  }
}

TEST_F(OpenFailuresTest, RefusesStringAttributes) {
  {
    NcMaker nc(file(), NC_NETCDF4);
    const int v = nc.var("v", NC_INT, {});
    const char* text = "a string";
    ASSERT_EQ(nc_put_att_string(nc.id(), v, "units", 1, &text), NC_NOERR);
  }
  expectRefused(file(),
                "Variable-Type of Attribute not expected:\n\nVariable Name = v\n\n"
                "Attribute Name = units\n\nType Number = 12");
}

TEST_F(OpenFailuresTest, RefusesAnUntypedAttributeOfAnotherNameThanDods) {
  for (const char* name : {"dods", "DODS_EXTRA", "units"}) {
    NcMaker nc(file());
    nc.text(nc.var("v", NC_INT, {}), name, "x");
    nc.close();
    NetCDF::library.nc_inq_att = [](int, int, const char*, nc_type* type, std::size_t* length) {
      *type = NC_NAT;
      *length = 0;
      return NC_NOERR;
    };
    expectRefused(file(), std::string("Variable-Type of Attribute not expected:\n\n"
                                      "Variable Name = v\n\nAttribute Name = ") +
                              name + "\n\nType Number = 0");
  }
}

// Every call of an opening refused in turn.
TEST_F(OpenFailuresTest, ReportsWhateverTheLibraryRefuses) {
  NcMaker nc(file());
  const int dim = nc.dim("d", 2);
  const int v = nc.var("v", NC_INT, {dim});
  nc.text(v, "t", "x");
  for (int type = NC_SHORT; type <= NC_DOUBLE; ++type) {
    nc.number(v, "a" + std::to_string(type), type, {1});
  }
  nc.close();
  using Break = void (*)(NetCDF::EntryPoints&);
  const std::pair<const char*, Break> calls[] = {
      {"nc_open", [](auto& l) { l.nc_open = kRefusal; }},
      {"nc_inq_ndims", [](auto& l) { l.nc_inq_ndims = kRefusal; }},
      {"nc_inq_unlimdim", [](auto& l) { l.nc_inq_unlimdim = kRefusal; }},
      {"nc_inq_dim", [](auto& l) { l.nc_inq_dim = kRefusal; }},
      {"nc_inq_nvars", [](auto& l) { l.nc_inq_nvars = kRefusal; }},
      {"nc_inq_varname", [](auto& l) { l.nc_inq_varname = kRefusal; }},
      {"nc_inq_varndims", [](auto& l) { l.nc_inq_varndims = kRefusal; }},
      {"nc_inq_vartype", [](auto& l) { l.nc_inq_vartype = kRefusal; }},
      {"nc_inq_vardimid", [](auto& l) { l.nc_inq_vardimid = kRefusal; }},
      {"nc_inq_natts", [](auto& l) { l.nc_inq_natts = kRefusal; }},
      {"nc_inq_varnatts", [](auto& l) { l.nc_inq_varnatts = kRefusal; }},
      {"nc_inq_attname", [](auto& l) { l.nc_inq_attname = kRefusal; }},
      {"nc_inq_att", [](auto& l) { l.nc_inq_att = kRefusal; }},
      {"nc_get_att_text", [](auto& l) { l.nc_get_att_text = kRefusal; }},
      {"nc_get_att_short", [](auto& l) { l.nc_get_att_short = kRefusal; }},
      {"nc_get_att_int", [](auto& l) { l.nc_get_att_int = kRefusal; }},
      {"nc_get_att_float", [](auto& l) { l.nc_get_att_float = kRefusal; }},
      {"nc_get_att_double", [](auto& l) { l.nc_get_att_double = kRefusal; }},
  };
  for (const auto& [name, breakCall] : calls) {
    SCOPED_TRACE(name);
    support::resetState();
    desktop.messages.clear();
    breakCall(NetCDF::library);
    const CloseCount closes;
    EXPECT_EQ(OpenCatalogue(file(), 0), -1);
    expectLibraryFailure("NetCDF: HDF error");
    EXPECT_EQ(ncf.NcStatus, NC_EHDFERR);
    EXPECT_EQ(closes.calls, std::string(name) == "nc_open" ? 0 : 1);
  }
}

TEST_F(OpenFailuresTest, StaysInsideItsListsWhateverTheLibrarySays) {
  support::makeTinySet(file());
  NetCDF::library.nc_inq_vardimid = [](int, int, int* ids) {
    ids[0] = 99;
    return NC_NOERR;
  };
  expectRefused(file(), "[OpenCatalogue] Error: Subscript out of range");

  NetCDF::library = NetCDF::theLibrary();
  NetCDF::library.nc_inq_nvars = [](int, int* count) {
    *count = -1;
    return NC_NOERR;
  };
  expectRefused(file(), "[OpenCatalogue] Error: Subscript out of range");

  NetCDF::library = NetCDF::theLibrary();
  NetCDF::library.nc_inq_dim = [](int, int, char*, std::size_t* length) {
    *length = std::size_t{1} << 31;
    return NC_NOERR;
  };
  expectRefused(file(), "[OpenCatalogue] Error: Overflow");

  NetCDF::library = NetCDF::theLibrary();
  NetCDF::library.nc_inq_att = [](int, int, const char*, nc_type* type, std::size_t* length) {
    *type = NC_CHAR;
    *length = static_cast<std::size_t>(-1);
    return NC_NOERR;
  };
  expectRefused(file(), "[OpenCatalogue] Error: Out of memory");
}

}  // namespace
