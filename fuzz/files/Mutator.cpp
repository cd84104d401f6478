#include "Mutator.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace fuzz {
namespace {

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

std::string bytesOf(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

uint64_t saltOf(const std::string& kind) {
  uint64_t salt = 0;
  for (const char letter : kind) salt = Random(salt ^ static_cast<unsigned char>(letter)).next();
  return salt;
}

}  // namespace

Mutator::Mutator(const std::filesystem::path& seeds, const std::string& kind)
    : salt_(saltOf(kind)) {
  const bool mended = kind == "netcdf4-mended";
  const bool hdf5 = mended || kind == "netcdf4";
  for (const auto& path : filesIn(seeds / (hdf5 ? "netcdf4" : kind))) {
    Seed seed{.bytes = bytesOf(path), .layout = {}, .checksummed = {}};
    if (mended) seed.checksummed = checksummedBlocks(seed.bytes);
    if (hdf5) {
      seed.layout.structure = metadataBlocks(seed.bytes);
    } else {
      seed.layout = {.structure = {{0, kClassicHeader}},
                     .bigEndian = true,
                     .alignment = 4,
                     .keepLength = false};
    }
    seed.layout.keepLength = mended;
    seeds_.push_back(std::move(seed));
  }
  if (seeds_.empty()) throw std::runtime_error("no files of this kind: " + kind);
}

std::string Mutator::file(uint64_t number) const {
  const Seed& seed = seeds_[static_cast<std::size_t>(number % seeds_.size())];
  Random random(Random(salt_ ^ number).next());
  std::string bytes = seed.bytes;
  mutate(bytes, seed.layout, random);
  mendChecksums(bytes, seed.checksummed);
  return bytes;
}

}  // namespace fuzz
