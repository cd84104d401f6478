#include "NcTest.h"

namespace {

using ocxNetNc::OpenCatalogue;

// Addresses that ask for other protocols and stores than DAP 2. Nothing is asked of any server.
class OtherAddresses : public NcTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(OtherAddresses, AreRefusedByName) {
  EXPECT_EQ(OpenCatalogue(GetParam(), 0), -1);
  const std::string words =
      "NetCDF: Attempt to use feature that was not turned on when netCDF was built.";
  EXPECT_EQ(util::LastError, words +
                                 "\nStatus -128: of a server only OPeNDAP (DAP 2) data sets can be "
                                 "read, not DAP 4 or others.");
  EXPECT_FALSE(ocxNetNc::isOpen());
  ASSERT_EQ(desktop.messages.size(), 1U);
  EXPECT_EQ(desktop.messages.front().text, words);
}

INSTANTIATE_TEST_SUITE_P(Dap4, OtherAddresses,
                         ::testing::Values("dap4://127.0.0.1:9/a", "DAP4://127.0.0.1:9/a",
                                           "[dap4]http://127.0.0.1:9/a",
                                           "http://127.0.0.1:9/a#dap4",
                                           "http://127.0.0.1:9/a#mode=dap4",
                                           "https://127.0.0.1:9/a#mode=dap2,dap4"));

// Some of these once took all memory, or ended the process.
INSTANTIATE_TEST_SUITE_P(Stores, OtherAddresses,
                         ::testing::Values("s3://store/a", "http://127.0.0.1:9/a#mode=zarr",
                                           "http://127.0.0.1:9/a#zarr", "[s3]http://127.0.0.1:9/a",
                                           "[xarray]http://127.0.0.1:9/a",
                                           "http://127.0.0.1:9/a#noxarray",
                                           "http://127.0.0.1:9/a#mode=xarray,zarr,nczarr",
                                           "http://127.0.0.1:9/a#mode=udf0"));

}  // namespace
