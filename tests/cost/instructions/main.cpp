// What things cost in instructions. Started plainly, the program runs itself under callgrind.
#include <gtest/gtest.h>
#include <valgrind/valgrind.h>

#include <cstdio>
#include <exception>
#include <vector>

#include "underCallgrind.h"

int main(int count, char** arguments) {
  std::vector<char*> given(arguments, arguments + count + 1);
  testing::InitGoogleTest(&count, arguments);
  if (RUNNING_ON_VALGRIND != 0 || testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
  try {
    return cost::runUnderCallgrind(given.data());
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
