#include <gtest/gtest.h>

#include "OpendapTest.h"

int main(int argc, char** argv) {
  opendap_test::Place::here();
  opendap_test::waitAsEverywhere();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
