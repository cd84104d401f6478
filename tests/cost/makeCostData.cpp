// Makes the data sets of the tests of costs in a folder, whatever is there.
#include <cstdio>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "dataSets.h"
#include "writeSet.h"

namespace {

bench::DataSet oneStepOf(const std::string& known, const std::string& name) {
  for (bench::DataSet set : bench::dataSets(false)) {
    if (set.name != known) continue;
    set.name = name;
    set.levels = 50;
    set.steps = 1;
    return set;
  }
  throw std::runtime_error("no data set " + known);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::fputs("usage: make_cost_data FOLDER\n", stderr);
    return 2;
  }
  try {
    const std::filesystem::path folder = arguments[1];
    std::filesystem::create_directories(folder);
    for (const bench::DataSet& set :
         {oneStepOf("regional-classic", "classic"), oneStepOf("regional-levels", "levels"),
          oneStepOf("long", "long")}) {
      bench::writeSet(set, (folder / (set.name + ".nc")).string());
    }
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "make_cost_data: %s\n", error.what());
    return 1;
  }
}
