#include <gtest/gtest.h>
#include <windows.h>

#include <ole2.h>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  OleInitialize(nullptr);
  const int status = RUN_ALL_TESTS();
  OleUninitialize();
  return status;
}
