#include <fstream>
#include <sstream>

#include "FaultTest.h"
#include "Subprocess.h"
#include "colorkey/kewFile.h"

// A name and a password in an address go to the server that they were given for, and nowhere else.
namespace opendap_test {
namespace {

constexpr const char* kUser = "user:secret@";
constexpr const char* kGuarded = "guarded-dXNlcjpzZWNyZXQ%3D";  // of "user:secret"

class Credentials : public FaultTest {
 protected:
  std::string address(const std::string& path) const { return server.url(path, kUser); }
  void expectNotShown() const { expectNotIn(shownTexts()); }
  static void expectNotIn(const std::string& texts) {
    EXPECT_EQ(texts.find("secret"), std::string::npos) << texts;
    EXPECT_EQ(texts.find("user:"), std::string::npos) << texts;
  }
};

TEST_F(Credentials, OpenWhatTheyGuard) {
  EXPECT_EQ(ctl.NcFile(server.url(std::string(kGuarded) + "/tiny.nc")), -1);
  expectToldOf(-77, {"401"});
  EXPECT_EQ(drawTiny(address(std::string(kGuarded) + "/tiny.nc")), "");
  expectNotShown();
  EXPECT_EQ(drawTiny(tiny()), "");
}

TEST_F(Credentials, AreShownNowhere) {
  const std::string port = std::to_string(server.port());
  for (const std::string& name :
       {address("tiny.nc"), address("401/tiny.nc"), address("404/tiny.nc"), address("refuse/tiny.nc"),
        address("html.das/tiny.nc"), address("half.dods.2/tiny.nc"), address("500.dods.2/tiny.nc"),
        "http://" + std::string(kUser) + "127.0.0.1:" + port,
        "http://" + std::string(kUser) + "127.0.0.1:" + port + "/",
        "http://" + std::string(kUser) + "no-such-host.invalid/tiny.nc",
        "[noprefetch]" + address("404/tiny.nc"), "dods" + address("404/tiny.nc").substr(4)}) {
    drawTiny(name);
    expectNotShown();
  }
}

TEST_F(Credentials, AreNotInAnythingAboutTheKey) {
  ASSERT_EQ(drawTiny(address("tiny.nc")), "");
  ctl.InitColorKey();
  expectNotShown();
  ctl.KewFile(ModColor::ownKewFile());
  expectNotShown();
}

// Another port is another server, whoever sends there.
TEST_F(Credentials, DoNotFollowARedirectionElsewhere) {
  const std::string folder = data("").substr(0, data("").size() - 1);
  const DapServer other(folder, Place::here().own("other.log"));
  const std::string port = std::to_string(other.port());
  for (const char* where : {"elsewhere-", "named-"}) {
    ctl.NcFile(address(where + port + "/tiny.nc"));
    expectNotShown();
  }
  EXPECT_FALSE(other.requests().empty());
  for (const DapServer::Request& request : other.requests()) {
    EXPECT_EQ(request.header("Authorization"), "");
  }
}

class Redirected : public FaultTest {};

TEST_F(Redirected, AddressesAreFollowed) {
  const std::string folder = data("").substr(0, data("").size() - 1);
  const DapServer other(folder, Place::here().own("other.log"));
  EXPECT_EQ(drawTiny(tiny("redirect")), "");
  EXPECT_EQ(drawTiny(tiny("elsewhere-" + std::to_string(other.port()))), "");
  EXPECT_GT(other.count("dods"), 0);
}

// The command says nothing of them either, nor do the files that it writes.
TEST_F(Credentials, AreNotInWhatTheToolWrites) {
  for (const char* format : {"svg", "pdf", "png"}) {
    const std::string picture = Place::here().own(std::string("picture.") + format);
    const cli_test::Result result =
        cli_test::run({KELVANE_PROGRAM, "draw", address("tiny.nc"), "--path",
                       "350.5,-0.9 358,0.4", "-o", picture});
    EXPECT_EQ(result.status, 0) << result.err;
    std::ostringstream bytes;
    bytes << std::ifstream(picture, std::ios::binary).rdbuf();
    EXPECT_GT(bytes.str().size(), 1000U);
    expectNotIn(result.out + result.err);
    EXPECT_EQ(bytes.str().find("secret"), std::string::npos) << format;
  }
  for (const std::string& name : {address("tiny.nc"), address("404/tiny.nc")}) {
    for (const char* command : {"info", "values"}) {
      std::vector<std::string> arguments = {KELVANE_PROGRAM, command, name};
      if (command == std::string("values")) {
        arguments.insert(arguments.end(), {"--path", "350.5,-0.9 358,0.4"});
      }
      const cli_test::Result result = cli_test::run(arguments);
      expectNotIn(result.out + result.err);
    }
  }
}

}  // namespace
}  // namespace opendap_test
