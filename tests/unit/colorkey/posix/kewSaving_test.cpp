#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <random>
#include <thread>

#include "colorkey/colorKey.h"
#include "colorkey/kewFile.h"
#include "netcdf/ncf.h"
#include "unit/colorkey/KewTest.h"
#include "util/lastError.h"

namespace {

using ModColor::SaveExistingKew;

class KewSaving : public KewTest {
 protected:
  // Makes a key large enough that its file is written in several pieces.
  static void setLargeKey(int32_t colour) {
    ModColor::NewColorKey();
    for (int32_t i = 0; i < 3000; ++i) ModColor::AddColorKey(0.125F, 0.375F, colour);
  }

  // Runs something in a process of its own and returns its status.
  static int inChild(const std::function<void()>& work) {
    const pid_t child = fork();
    if (child == 0) {
      work();
      _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    return status;
  }

  // The superuser may read and write everything.
  static void becomeNobody() {
    constexpr uid_t kNobody = 65534;
    EXPECT_TRUE(geteuid() != 0 || seteuid(kNobody) == 0);
  }

  static void expectRefused(const std::string& fileName, const std::string& reason) {
    const std::string before = contentsOf(fileName);
    util::LastError.clear();
    SaveExistingKew(fileName, "temp");
    EXPECT_EQ(util::LastError, "ModColor SaveExistingKew: 5, KelvaneCtl, Cannot write \"" +
                                   fileName + "\": " + reason);
    EXPECT_EQ(contentsOf(fileName), before);
  }
};

TEST_F(KewSaving, KeepsPermissionsAndLinks) {
  const std::string name = write(smallKew());
  ASSERT_EQ(chmod(name.c_str(), 0640), 0);
  std::filesystem::create_symlink("a.kew", folder.path() / "link.kew");
  SaveExistingKew(folder.file("link.kew"), "salt");
  EXPECT_EQ(util::LastError, "");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "link.kew"));
  EXPECT_NE(contentsOf(name).find("salt"), std::string::npos);
  struct stat facts = {};
  ASSERT_EQ(stat(name.c_str(), &facts), 0);
  EXPECT_EQ(facts.st_mode & 07777U, 0640U);
}

TEST_F(KewSaving, AWriteProtectedFileStaysAsItIs) {
  const std::string name = write(smallKew());
  ASSERT_EQ(chmod(name.c_str(), 0444), 0);
  expectRefused(name, "Permission denied");
  EXPECT_EQ(folderContents(), std::vector<std::string>{"a.kew"});
}

TEST_F(KewSaving, InAFolderThatMayNotBeWrittenNothingChanges) {
  const std::string name = write(smallKew());
  ASSERT_EQ(chmod(name.c_str(), 0666), 0);
  ASSERT_EQ(chmod(folder.path().c_str(), 0555), 0);
  const int status = inChild([&] {
    becomeNobody();
    expectRefused(name, "Permission denied");
    ocxNetNc::ncf.NcFileName = folder.file("new.nc");
    ModColor::SaveKEW();
    EXPECT_EQ(util::LastError, "ModColor SaveKEW: 5, KelvaneCtl, Cannot write \"" +
                                   folder.file("new.KEW") + "\": Permission denied");
  });
  ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(folderContents(), std::vector<std::string>{"a.kew"});
}

TEST_F(KewSaving, AnUnreadableFileIsNoKeyAndIsNotReplaced) {
  const std::string name = write(smallKew());
  ASSERT_EQ(chmod(name.c_str(), 0200), 0);
  EXPECT_EQ(inChild([&] {
              becomeNobody();
              EXPECT_EQ(ModColor::GetKewCol(name), -1);
              EXPECT_EQ(util::LastError, "");
              SaveExistingKew(name, "temp");
              EXPECT_EQ(util::LastError, "ModColor SaveExistingKew: 5, KelvaneCtl, Cannot read \"" +
                                             name + "\": Permission denied");
            }),
            0);
  EXPECT_EQ(contentsOf(name), smallKew());
}

// A limit of the system on the size of files ends a write as a full disk does.
TEST_F(KewSaving, AFullDiskLeavesTheOldFile) {
  const std::string name = write(smallKew());
  setLargeKey(255);
  EXPECT_EQ(inChild([&] {
              std::signal(SIGXFSZ, SIG_IGN);
              const rlimit limit = {4096, 4096};
              EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
              expectRefused(name, "File too large");
              ocxNetNc::ncf.NcFileName = folder.file("new.nc");
              ModColor::SaveKEW();
              EXPECT_EQ(util::LastError, "ModColor SaveKEW: 5, KelvaneCtl, Cannot write \"" +
                                             folder.file("new.KEW") + "\": File too large");
            }),
            0);
  EXPECT_EQ(contentsOf(name), smallKew());
  EXPECT_EQ(folderContents(), std::vector<std::string>{"a.kew"});
}

TEST_F(KewSaving, AFileThatIsTooLargeIsRefused) {
  const std::string name = write(smallKew());
  ASSERT_EQ(truncate(name.c_str(), 64 * 1024 * 1024 + 1), 0);
  EXPECT_EQ(ModColor::GetKewCol(name), -1);
  EXPECT_EQ(util::LastError, "");
  SaveExistingKew(name, "temp");
  EXPECT_EQ(util::LastError, "ModColor SaveExistingKew: 5, KelvaneCtl, Cannot read \"" + name +
                                 "\": File too large");
  EXPECT_EQ(std::filesystem::file_size(name), 64U * 1024 * 1024 + 1);
}

// A program that is killed at any moment of a save leaves one of the two whole files.
TEST_F(KewSaving, AKilledProgramLeavesAWholeFile) {
  const std::string name = write("<section/>");
  std::vector<std::string> versions;
  for (const int32_t colour : {1, 2}) {
    setLargeKey(colour);
    SaveExistingKew(name, "temp");
    versions.push_back(contentsOf(name));
  }
  ASSERT_NE(versions[0], versions[1]);
  std::mt19937 random(3);
  for (int round = 0; round < 30; ++round) {
    const pid_t child = fork();
    if (child == 0) {
      for (int32_t colour = 1;; colour = 3 - colour) {
        setLargeKey(colour);
        SaveExistingKew(name, "temp");
      }
    }
    ASSERT_GT(child, 0);
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 20000));
    ASSERT_EQ(kill(child, SIGKILL), 0);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the saving ended by itself";
    ASSERT_NE(std::ranges::find(versions, contentsOf(name)), versions.end()) << round;
  }
  // What was left beside it hinders nobody.
  setLargeKey(2);
  SaveExistingKew(name, "temp");
  EXPECT_EQ(util::LastError, "");
  EXPECT_EQ(contentsOf(name), versions[1]);
}

}  // namespace
