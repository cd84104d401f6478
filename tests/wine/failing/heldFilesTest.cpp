#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <thread>
#include <vector>

#include "../childProcess.h"
#include "Dispatch.h"
#include "colorkey/kewListing.h"
#include "control.h"
#include "library.h"
#include "platform/WriteTurn.h"
#include "platform/files.h"
#include "support/NcMaker.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"

// Files that other programs have open, change or take away.
namespace winetest {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

class Held {
 public:
  Held(const std::wstring& path, DWORD access, DWORD share)
      : handle_(CreateFileW(path.c_str(), access, share, nullptr, OPEN_EXISTING,
                            FILE_ATTRIBUTE_NORMAL, nullptr)) {}
  ~Held() { CloseHandle(handle_); }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;
  bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return handle_; }

 private:
  HANDLE handle_;
};

DWORD handles() {
  DWORD count = 0;
  GetProcessHandleCount(GetCurrentProcess(), &count);
  return count;
}

// With a classic file and with a netCDF-4 one.
class HeldFiles : public testing::TestWithParam<bool> {
 protected:
  HeldFiles() {
    support::makeTinySet(folder_.file("set.nc"), GetParam() ? NC_NETCDF4 : 0);
    path_ = folder_.path().wstring() + L"\\set.nc";
  }

  int open() { return object_.call(L"NcFile", {path_}).number(); }
  std::string message() { return host::narrow(object_.get(L"ErrorMessage").text()); }
  void draw() {
    ASSERT_EQ(open(), 1) << message();
    object_.call(L"NewSection");
    object_.call(L"AddSection", {350, 0});
    object_.call(L"AddSection", {358, 0});
    ASSERT_EQ(object_.call(L"EndSection").number(), 1);
    object_.call(L"Draw");
  }

  support::TempFolder folder_;
  std::wstring path_;
  BareControl control_;
  host::Object object_{control_.identity()};
};

TEST_P(HeldFiles, AreNotHeldByTheControlBetweenItsCalls) {
  ASSERT_NO_FATAL_FAILURE(draw());
  // Whoever wants the file for himself gets it.
  EXPECT_TRUE(Held(path_, GENERIC_READ | GENERIC_WRITE | DELETE, 0).isOpen());
  EXPECT_NE(MoveFileW(path_.c_str(), (path_ + L".moved").c_str()), 0);
  EXPECT_EQ(open(), -1);
  EXPECT_NE(message(), "");
  EXPECT_NE(MoveFileW((path_ + L".moved").c_str(), path_.c_str()), 0);
  ASSERT_NO_FATAL_FAILURE(draw());
}

TEST_P(HeldFiles, AreReadWhileAnotherProgramWrites) {
  const Held writer(path_, GENERIC_WRITE, kShareAll);
  ASSERT_TRUE(writer.isOpen());
  ASSERT_NO_FATAL_FAILURE(draw());
}

TEST_P(HeldFiles, ThatNobodyElseMayReadAreAClearFailure) {
  ASSERT_NO_FATAL_FAILURE(draw());
  const DWORD before = handles();
  for (int round = 0; round < 5; ++round) {
    const Held other(path_, GENERIC_READ | GENERIC_WRITE, 0);
    ASSERT_TRUE(other.isOpen());
    EXPECT_EQ(open(), -1);
    EXPECT_NE(message(), "");
    object_.call(L"SetCurrentTime", {2});
    object_.call(L"ReDraw");
  }
  EXPECT_LE(handles(), before + 2);
  ASSERT_NO_FATAL_FAILURE(draw());
}

// Not every system keeps to the locks of parts.
TEST_P(HeldFiles, WithALockedPartAreReadOrAClearFailure) {
  ASSERT_NO_FATAL_FAILURE(draw());
  {
    const Held other(path_, GENERIC_READ | GENERIC_WRITE, kShareAll);
    ASSERT_NE(LockFile(other.get(), 0, 0, 0x10000, 0), 0);
    if (open() != 1) {
      EXPECT_NE(message(), "");
    }
  }
  ASSERT_NO_FATAL_FAILURE(draw());
}

TEST_P(HeldFiles, CutOrReplacedBetweenTwoReadsAreAClearFailure) {
  ASSERT_NO_FATAL_FAILURE(draw());
  ASSERT_NE(CopyFileW(path_.c_str(), (path_ + L".kept").c_str(), FALSE), 0);
  for (const LONG length : {0, 30, 600}) {
    {
      const Held other(path_, GENERIC_WRITE, kShareAll);
      SetFilePointer(other.get(), length, nullptr, FILE_BEGIN);
      ASSERT_NE(SetEndOfFile(other.get()), 0);
    }
    object_.call(L"SetCurrentTime", {2});
    EXPECT_NE(message(), "");
    EXPECT_EQ(open(), -1);
    ASSERT_NE(CopyFileW((path_ + L".kept").c_str(), path_.c_str(), FALSE), 0);
    ASSERT_NO_FATAL_FAILURE(draw());
  }
}

INSTANTIATE_TEST_SUITE_P(, HeldFiles, testing::Bool(),
                         [](const auto& tested) { return tested.param ? "NetCDF4" : "Classic"; });

TEST(SavingKeysAtOnce, LosesNoneAndTheFileIsWholeAtEveryMoment) {
  const support::TempFolder folder;
  const std::string file = folder.file("set.KEW");
  const wchar_t* const variables[] = {L"temp", L"salt"};
  Outcome outcomes[2];
  std::atomic<int> running = 2;
  std::vector<std::thread> savers;
  for (int i = 0; i < 2; ++i) {
    savers.emplace_back([&, i] {
      outcomes[i] = runProgram(programFolder() + L"\\..\\failing\\key_saver.exe \"" +
                                   folder.path().wstring() + L"\" " + variables[i] + L" 200",
                               Boxes::LeftAlone);
      --running;
    });
  }
  std::size_t most = 0;
  int looks = 0;
  while (running > 0) {
    // A file that is open all the time cannot be replaced.
    Sleep(10);
    if (!platform::fileExists(file)) continue;
    std::size_t keys = 0;
    ASSERT_NO_THROW(keys = ModColor::ListKewFile(file).size());
    EXPECT_GE(keys, most);
    most = keys;
    ++looks;
  }
  for (std::thread& saver : savers) saver.join();
  for (const Outcome& outcome : outcomes) EXPECT_EQ(outcome.status, 0U) << outcome.output;
  EXPECT_EQ(ModColor::ListKewFile(file).size(), 2U);
  EXPECT_GT(looks, 10);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()),
                          std::filesystem::directory_iterator()),
            1);
}

TEST(WriteTurn, IsOneForEveryNameOfAFileAndEndsWithItsHolder) {
  const support::TempFolder folder;
  const std::string file = folder.file("set.KEW");
  const DWORD before = handles();
  const auto tried = [](const std::string& name) {
    std::string failure;
    std::thread other([&] {
      try {
        const platform::WriteTurn turn(name, std::chrono::milliseconds(100));
      } catch (const std::runtime_error& error) {
        failure = error.what();
      }
    });
    other.join();
    return failure;
  };
  {
    const platform::WriteTurn turn(file);
    EXPECT_EQ(tried(file), "Cannot write \"" + file + "\": Another program is writing it");
    EXPECT_NE(tried(folder.file("SET.kew")), "");
    EXPECT_NE(tried(folder.file(".\\set.KEW")), "");
    EXPECT_EQ(tried(folder.file("other.KEW")), "");
  }
  EXPECT_EQ(tried(file), "");
  EXPECT_LE(handles(), before + 1);
}

}  // namespace
}  // namespace winetest
