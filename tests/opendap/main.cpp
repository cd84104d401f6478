#include <gtest/gtest.h>

#include <fstream>

#include "Place.h"

namespace {

// What a user may write: answers that do not come are given up after two seconds.
void limitWaiting() {
  std::ofstream(opendap_test::Place::here().home() + "/.ncrc")
      << "HTTP.TIMEOUT=2\nHTTP.CONNECTTIMEOUT=2\n";
}

}  // namespace

int main(int argc, char** argv) {
  opendap_test::Place::here();
  limitWaiting();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
