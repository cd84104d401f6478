#include <filesystem>
#include <fstream>

#include "OpendapTest.h"
#include "Subprocess.h"

// What lies around a program: settings of the library in its folders, folders that cannot be
// written.
namespace opendap_test {
namespace {

class Surrounded : public OpendapTest {
 protected:
  Surrounded() : other(data("."), Place::here().own("proxy.log")), work_(Place::here().own("work")) {
    std::filesystem::remove_all(work_);
    for (const char* name : {"home", "temp", "current"}) {
      std::filesystem::create_directories(folder(name));
    }
  }
  std::string folder(const std::string& name) const { return work_ + "/" + name; }
  // Settings that send every request to the other server instead.
  void writeProxy(const std::string& name) const {
    std::ofstream(name) << "HTTP.PROXY.SERVER=http://127.0.0.1:" << other.port() << "\n"
                        << "HTTP.PROXY_SERVER=http://127.0.0.1:" << other.port() << "\n";
  }
  // The tool in these folders.
  cli_test::Result info(std::vector<std::pair<std::string, std::string>> environment = {}) {
    cli_test::Surroundings surroundings;
    surroundings.folder = folder("current");
    surroundings.environment = {{"HOME", folder("home")},
                                {"TMPDIR", folder("temp")},
                                {"TEMP", folder("temp")},
                                {"TMP", folder("temp")}};
    for (const auto& setting : environment) surroundings.environment.push_back(setting);
    return cli_test::run({KELVANE_PROGRAM, "info", tiny()}, surroundings);
  }
  std::vector<std::string> names(const std::string& name) const {
    std::vector<std::string> all;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder(name))) {
      all.push_back(entry.path().filename().string());
    }
    return all;
  }

  DapServer other;

 private:
  std::string work_;
};

TEST_F(Surrounded, ByNothingLeavesNothing) {
  const cli_test::Result result = info();
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.err, "");
  for (const char* name : {"home", "temp", "current"}) EXPECT_TRUE(names(name).empty()) << name;
}

// A folder with data may come from anywhere: nothing in it sends our requests elsewhere.
TEST_F(Surrounded, BySettingsInTheCurrentFolderIgnoresThem) {
  for (const char* name : {".ncrc", ".dodsrc", ".daprc"}) {
    writeProxy(folder("current") + "/" + name);
    const cli_test::Result result = info();
    EXPECT_EQ(result.status, 0) << name << result.err;
    EXPECT_TRUE(other.requests().empty()) << name;
    std::filesystem::remove(folder("current") + "/" + name);
  }
}

TEST_F(Surrounded, BySettingsOfTheUserObeysThem) {
  writeProxy(folder("home") + "/.ncrc");
  info();
  EXPECT_FALSE(other.requests().empty());
  EXPECT_TRUE(server.requests().empty());
}

TEST_F(Surrounded, ByNoFolderForTemporaryFilesWorks) {
  for (const char* missing : {"/nowhere/at/all", ""}) {
    const cli_test::Result result = info({{"TMPDIR", missing}, {"TEMP", missing}, {"TMP", missing}});
    EXPECT_EQ(result.status, 0) << result.err;
    for (const char* name : {"home", "current"}) EXPECT_TRUE(names(name).empty()) << name;
  }
}

TEST_F(Surrounded, ByNoHomeWorks) {
  const cli_test::Result result = info({{"HOME", "/nowhere/at/all"}});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.err, "");
}

}  // namespace
}  // namespace opendap_test
