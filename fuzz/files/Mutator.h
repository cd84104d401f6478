#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "checksums.h"
#include "mutate.h"

namespace fuzz {

// Makes damaged data sets of one kind out of whole ones: classic (CDF-1), offset64 (CDF-2), data64
// (CDF-5), netcdf4, odd (HDF5 files of other programs), or netcdf4-mended and odd-mended, which have
// right checksums over the damage.
class Mutator {
 public:
  // Takes the files of the kind's folder below seeds; throws std::runtime_error without any.
  Mutator(const std::filesystem::path& seeds, const std::string& kind);

  // The bytes of a damaged file: the same for the same seeds, kind and number everywhere.
  std::string file(uint64_t number);

 private:
  struct Seed {
    std::string bytes;
    Layout layout;
    std::vector<ChecksummedBlock> checksummed;
    bool prepared = false;
  };
  void prepare(Seed& seed) const;

  uint64_t salt_ = 0;
  bool hdf5_ = false, mended_ = false;
  std::vector<Seed> seeds_;
};

}  // namespace fuzz
