#include <gtest/gtest.h>
#include <netcdf.h>

#include <filesystem>

#include "DapServer.h"
#include "Place.h"
#include "Subprocess.h"

// A copy of a served data set is the same as that of the file.
namespace opendap_test {
namespace {

namespace fs = std::filesystem;

class FitOfAServedSet : public testing::Test {
 protected:
  FitOfAServedSet() : server(folder(), Place::here().own("fit.log")) {}

  static std::string folder() {
    const std::string made = Place::here().own("fit");
    fs::create_directories(made);
    fs::remove(made + "/levitus.nc");
    fs::create_symlink(LEVITUS_CLIMATOLOGY, made + "/levitus.nc");
    return made;
  }
  static cli_test::Result fit(const std::string& in, const std::string& out) {
    return cli_test::run(
        {KELVANE_PROGRAM, "fit", in, out, "--box", "-40,-10,-10,10", "--vars", "TEMP"});
  }
  static std::vector<double> values(const std::string& file, const char* name) {
    int id = -1, variable = -1;
    EXPECT_EQ(nc_open(file.c_str(), NC_NOWRITE, &id), NC_NOERR);
    EXPECT_EQ(nc_inq_varid(id, name, &variable), NC_NOERR) << name;
    std::vector<double> found(20 * 20 * 30);
    EXPECT_EQ(nc_get_var_double(id, variable, found.data()), NC_NOERR);
    nc_close(id);
    return found;
  }
  static std::string history(const std::string& file) {
    int id = -1;
    std::size_t length = 0;
    EXPECT_EQ(nc_open(file.c_str(), NC_NOWRITE, &id), NC_NOERR);
    nc_inq_attlen(id, NC_GLOBAL, "history", &length);
    std::string text(length, '\0');
    nc_get_att_text(id, NC_GLOBAL, "history", text.data());
    nc_close(id);
    return text;
  }
  static std::string own(const std::string& name) { return Place::here().own(name); }

  DapServer server;
};

TEST_F(FitOfAServedSet, HasTheValuesOfTheFile) {
  const cli_test::Result local = fit(folder() + "/levitus.nc", own("local.nc"));
  const cli_test::Result remote = fit(server.url("levitus.nc", "user:secret@"), own("remote.nc"));
  ASSERT_EQ(local.status, 0) << local.err;
  ASSERT_EQ(remote.status, 0) << remote.err;
  EXPECT_EQ(values(own("remote.nc"), "TEMP"), values(own("local.nc"), "TEMP"));
  EXPECT_EQ(history(own("remote.nc")).find("secret"), std::string::npos);
  EXPECT_NE(history(own("remote.nc")).find("kelvane fit http://127.0.0.1"), std::string::npos);
  EXPECT_EQ((remote.out + remote.err).find("secret"), std::string::npos);
}

TEST_F(FitOfAServedSet, ThatIsNotThereIsTold) {
  const cli_test::Result result = fit(server.url("none.nc", "user:secret@"), own("none.nc"));
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.err.find("Status "), std::string::npos) << result.err;
  EXPECT_EQ(result.err.find("secret"), std::string::npos) << result.err;
  EXPECT_FALSE(fs::exists(own("none.nc")));
}

}  // namespace
}  // namespace opendap_test
