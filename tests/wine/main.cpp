#include <gtest/gtest.h>
#include <ole2.h>
#include <windows.h>

#include "childProcess.h"
#include "library.h"

namespace {

// The control is registered for the extent of the tests.
class Registered : public testing::Environment {
 public:
  void SetUp() override { ASSERT_EQ(regsvr32(L""), 0U); }
  void TearDown() override { EXPECT_EQ(regsvr32(L"/u"), 0U); }

 private:
  static unsigned long regsvr32(const std::wstring& options) {
    return winetest::runProgram(L"regsvr32.exe /s " + options + L" \"" + winetest::libraryPath() +
                                L"\"")
        .status;
  }
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  testing::AddGlobalTestEnvironment(new Registered);
  OleInitialize(nullptr);
  const int status = RUN_ALL_TESTS();
  OleUninitialize();
  return status;
}
