#include "Mutator.h"

#include <algorithm>
#include <stdexcept>

#include "platform/files.h"

namespace fuzz {
namespace {

constexpr std::size_t kLargestSeed = std::size_t{1} << 24;

// The headers of the classic seeds take about so many bytes.
constexpr std::size_t kClassicHeader = 1200;

std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

}  // namespace

Mutator::Mutator(const std::filesystem::path& seeds, const std::string& kind)
    : salt_(scrambled(kind)),
      hdf5_(kind.starts_with("netcdf4") || kind.starts_with("odd")),
      mended_(kind.ends_with("-mended")) {
  for (const auto& path : filesIn(seeds / kind.substr(0, kind.find('-')))) {
    seeds_.push_back({.bytes = platform::readWholeFile(path.string(), kLargestSeed),
                      .layout = {},
                      .checksummed = {}});
  }
  if (seeds_.empty()) throw std::runtime_error("no files of this kind: " + kind);
}

// Looks for the parts of the file, once: it takes its time.
void Mutator::prepare(Seed& seed) const {
  if (seed.prepared) return;
  seed.prepared = true;
  if (!hdf5_) {
    seed.layout = {.structure = {{0, kClassicHeader}},
                   .bigEndian = true,
                   .alignment = 4,
                   .keepLength = false};
    return;
  }
  const std::vector<ChecksummedBlock> blocks = checksummedBlocks(seed.bytes);
  seed.layout.structure = metadataBlocks(seed.bytes, blocks);
  seed.layout.keepLength = mended_;
  if (mended_) seed.checksummed = blocks;
}

std::string Mutator::file(uint64_t number) {
  Seed& seed = seeds_[static_cast<std::size_t>(number % seeds_.size())];
  prepare(seed);
  Random random(Random(salt_ ^ number).next());
  std::string bytes = seed.bytes;
  mutate(bytes, seed.layout, random);
  mendChecksums(bytes, seed.checksummed);
  return bytes;
}

}  // namespace fuzz
