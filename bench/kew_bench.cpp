// KEW files of large keys, and the colours of many cells through keys of many divisions.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <random>
#include <string>
#include <system_error>
#include <vector>

#include "colorkey/cellColours.h"
#include "colorkey/colorKey.h"
#include "colorkey/kewFile.h"
#include "netcdf/ncf.h"
#include "section/drawItems.h"
#include "util/lastError.h"

namespace {

constexpr int64_t kLargeKey = 30'000;
constexpr int64_t kCells = 200'000;

// Divisions side by side from 0 to 30 degrees.
void makeKey(int64_t count) {
  ModColor::NewColorKey();
  const double step = 30.0 / static_cast<double>(count);
  for (int64_t i = 0; i < count; ++i) {
    const double low = static_cast<double>(i) * step;
    ModColor::AddColorKey(static_cast<float>(low), static_cast<float>(low + step),
                          static_cast<int32_t>(i));
  }
}

std::vector<float> cells() {
  std::mt19937 random(11);
  std::vector<float> values;
  for (int64_t n = 0; n < kCells; ++n) {
    values.push_back(static_cast<float>(random() % 3'100'000) / 100'000.0F);
  }
  return values;
}

// The own key file of a data set, not yet there, in a folder of its own for temporary files.
class KeyFile {
 public:
  KeyFile() : folder_((std::filesystem::temp_directory_path() / "kelvane-XXXXXX").string()) {
    if (mkdtemp(folder_.data()) == nullptr) {
      throw std::system_error(errno, std::generic_category(), folder_);
    }
    ocxNetNc::ncf.NcFileName = folder_ + "/sample.nc";
    KelvaneMain::DrawItem item;
    item.name = "temp";
    KelvaneMain::DrawItems = {item};
    KelvaneMain::Item_shown = 1;
  }
  ~KeyFile() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  KeyFile(const KeyFile&) = delete;
  KeyFile& operator=(const KeyFile&) = delete;
  static std::string name() { return ModColor::ownKewFile(); }

 private:
  std::string folder_;
};

void load(benchmark::State& state) {
  const KeyFile file;
  makeKey(state.range(0));
  ModColor::SaveKEW();
  util::LastError.clear();
  int32_t count = 0;
  for (auto _ : state) count = ModColor::GetKewCol(KeyFile::name());
  if (count != state.range(0)) {
    state.SkipWithError(("the key was not loaded whole: " + util::LastError).c_str());
  }
}
BENCHMARK(load)->Arg(10)->Arg(kLargeKey)->Unit(benchmark::kMillisecond);

// Replaces the key in a file that has it: reads the file, writes it and waits for the disk.
void save(benchmark::State& state) {
  const KeyFile file;
  makeKey(state.range(0));
  ModColor::SaveKEW();
  util::LastError.clear();
  for (auto _ : state) ModColor::SaveKEW();
  if (!util::LastError.empty()) {
    state.SkipWithError(("the key was not saved: " + util::LastError).c_str());
  }
}
BENCHMARK(save)->Arg(10)->Arg(kLargeKey)->Unit(benchmark::kMillisecond);

template <class Lookup>
int64_t sumOf(const std::vector<float>& values, const Lookup& colourOf) {
  int64_t sum = 0;
  for (const float value : values) sum += colourOf(value);
  return sum;
}

// As a drawing does it: the key is prepared once and asked for every cell.
void prepared(benchmark::State& state) {
  makeKey(state.range(0));
  const std::vector<float> values = cells();
  for (auto _ : state) benchmark::DoNotOptimize(sumOf(values, ModColor::KeyLookup()));
}
BENCHMARK(prepared)->Arg(1)->Arg(10)->Arg(1000)->Arg(kLargeKey)->Unit(benchmark::kMillisecond);

void plain(benchmark::State& state) {
  makeKey(state.range(0));
  const std::vector<float> values = cells();
  for (auto _ : state) benchmark::DoNotOptimize(sumOf(values, ModColor::KeyColour));
}
BENCHMARK(plain)->Arg(1)->Arg(10)->Arg(1000)->Arg(kLargeKey)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
