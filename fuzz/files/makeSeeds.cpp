// makeSeeds FOLDER: the whole data sets that the mutator damages.

#include <cstdio>
#include <exception>

#include "seedSets.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: makeSeeds FOLDER\n");
    return 2;
  }
  try {
    fuzz::makeSeedSets(argv[1]);
    return 0;
  } catch (const std::exception& problem) {
    std::fprintf(stderr, "makeSeeds: %s\n", problem.what());
    return 1;
  }
}
