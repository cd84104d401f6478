#include <gtest/gtest.h>

#include "Place.h"

int main(int argc, char** argv) {
  opendap_test::Place::here();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
