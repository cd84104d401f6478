#include <sys/stat.h>

#include "CliTest.h"

namespace cli_test {
namespace {

// Opening a pipe would wait for a writer that never comes.
TEST_F(CliTest, APipeIsNoDataSet) {
  ASSERT_EQ(mkfifo(file("pipe.nc").c_str(), 0600), 0);
  const Result result = kelvane({"info", "pipe.nc"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err, "kelvane: pipe.nc: NetCDF: Unknown file format\n");
}

}  // namespace
}  // namespace cli_test
