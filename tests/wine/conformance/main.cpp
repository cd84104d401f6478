#include <gtest/gtest.h>
#include <ole2.h>

#include "library.h"

namespace {

// Whatever an earlier program left: here the control does without.
class NotRegistered : public testing::Environment {
 public:
  void SetUp() override { ASSERT_EQ(winetest::Library().unregisterServer(), S_OK); }
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  testing::AddGlobalTestEnvironment(new NotRegistered);
  OleInitialize(nullptr);
  const int status = RUN_ALL_TESTS();
  OleUninitialize();
  return status;
}
