#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "mutate.h"

namespace fuzz {

// The checksum that HDF5 keeps of its metadata (Jenkins' lookup3).
uint32_t metadataChecksum(std::string_view bytes);

struct ChecksummedBlock {
  Stretch extent;         // what the checksum is taken of
  std::size_t place = 0;  // of the checksum: behind the extent, or in it and then taken as zero
};

// The blocks of an undamaged HDF5 file that have a checksum.
std::vector<ChecksummedBlock> checksummedBlocks(const std::string& bytes);

// Where the metadata of an undamaged HDF5 file are: its blocks with checksums, and the beginnings
// of those without.
std::vector<Stretch> metadataBlocks(const std::string& bytes,
                                    const std::vector<ChecksummedBlock>& checksummed);

// Takes the time of its making out of an undamaged HDF5 file.
void clearTimes(std::string& bytes);

// Writes the right checksum into every block, so that a damage inside gets past the check. Blocks
// that tell their own length are mended at the length that they tell now, too.
void mendChecksums(std::string& bytes, const std::vector<ChecksummedBlock>& blocks);

}  // namespace fuzz
