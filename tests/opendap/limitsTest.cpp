#include <arpa/inet.h>
#include <netcdf.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "FaultTest.h"
#include "Subprocess.h"
#include "netcdf/NetCDF.h"

// How long the control waits, for what, and who says so.
namespace opendap_test {
namespace {

class Limits : public FaultTest {};

// Somebody listens there and never takes a connection.
class DeafPort {
 public:
  DeafPort() {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const plain = reinterpret_cast<sockaddr*>(&address);
    if (::bind(listener_, plain, size) != 0 || ::listen(listener_, 0) != 0 ||
        ::getsockname(listener_, plain, &size) != 0) {
      throw std::runtime_error("no port");
    }
    port_ = ntohs(address.sin_port);
    // The queue is full after the first; what comes later waits for ever.
    for (int& caller : callers_) ::connect(caller, plain, size);
  }
  ~DeafPort() {
    for (const int caller : callers_) ::close(caller);
    ::close(listener_);
  }
  DeafPort(const DeafPort&) = delete;
  DeafPort& operator=(const DeafPort&) = delete;

  int port() const { return port_; }

 private:
  static int newSocket(int kind) { return ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | kind, 0); }

  int listener_ = newSocket(0);
  int callers_[4] = {newSocket(SOCK_NONBLOCK), newSocket(SOCK_NONBLOCK), newSocket(SOCK_NONBLOCK),
                     newSocket(SOCK_NONBLOCK)};
  int port_ = 0;
};

TEST_F(Limits, OfTheConnection) {
  const DeafPort deaf;
  NetCDF::dapLimits(1, 60, 60);
  const Watch watch;
  EXPECT_EQ(ctl.NcFile("http://127.0.0.1:" + std::to_string(deaf.port()) + "/tiny.nc"), -1);
  expectToldOf(NC_EIO, {"127.0.0.1"});
  expectNextOneWorks();
}

TEST_F(Limits, OfSilence) {
  NetCDF::dapLimits(60, 1, 60);
  for (const char* fault : {"stuck.dds", "stuckhalf.dods"}) {
    const Watch watch;
    desktop.messages.clear();
    EXPECT_EQ(ctl.NcFile(tiny(fault)), -1) << fault;
    expectToldOf(NC_EIO, {"127.0.0.1"});
  }
  expectNextOneWorks();
}

// A server that sends a byte now and then is not silent, and does not come to an end either.
TEST_F(Limits, OfAWholeRequest) {
  NetCDF::dapLimits(60, 60, 2);
  const Watch watch;
  EXPECT_EQ(ctl.NcFile(tiny("drip-100.dds")), -1);
  expectToldOf(NC_EIO, {"second"});
  expectNextOneWorks();
}

// A slow server is none that fails, as long as it keeps within the limits.
TEST_F(Limits, AreNotForSlowServers) {
  EXPECT_EQ(drawTiny(tiny("slow-500")), "");
}

TEST_F(Limits, AreTheUsersOwn) {
  const std::string home = Place::here().own("home");
  std::filesystem::create_directories(home);
  std::ofstream(home + "/.ncrc") << "HTTP.TIMEOUT=1\n";
  cli_test::Surroundings surroundings;
  surroundings.environment = {{"HOME", home}};
  const Watch watch;
  const cli_test::Result result =
      cli_test::run({KELVANE_PROGRAM, "info", tiny("stuck.dds")}, surroundings);
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.err.find(nc_strerror(NC_EIO)), std::string::npos) << result.err;
  EXPECT_NE(result.err.find("second"), std::string::npos) << result.err;
}

}  // namespace
}  // namespace opendap_test
