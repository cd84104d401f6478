#include "checksums.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <optional>

namespace fuzz {
namespace {

constexpr std::size_t kChecksumSize = 4;
constexpr std::size_t kLongestBlock = 1536;
constexpr uint32_t kStoresTimes = 0x20;  // flag of an object header
constexpr std::size_t kTimesSize = 16;
constexpr std::size_t kMetadataSize = 320;  // of a block whose end is not known

constexpr std::array<std::string_view, 16> kSignatures = {
    "\x89HDF", "OHDR", "OCHK", "FRHP", "FHDB", "FHIB", "BTHD", "BTIN", "BTLF", "TREE",
    "HEAP",    "SNOD", "GCOL", "EAHD", "FAHD", "FADB"};

uint32_t byteAt(std::string_view bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes.data()[at]);
}

// The lowest four bytes of a number.
uint32_t numberAt(std::string_view bytes, std::size_t at, std::size_t width = 4) {
  uint32_t value = 0;
  for (std::size_t i = 0; i < std::min<std::size_t>(width, 4) && at + i < bytes.size(); ++i) {
    value |= byteAt(bytes, at + i) << 8 * i;
  }
  return value;
}

struct Lanes {
  uint32_t a, b, c;

  void mix() {
    a -= c, a ^= std::rotl(c, 4), c += b;
    b -= a, b ^= std::rotl(a, 6), a += c;
    c -= b, c ^= std::rotl(b, 8), b += a;
    a -= c, a ^= std::rotl(c, 16), c += b;
    b -= a, b ^= std::rotl(a, 19), a += c;
    c -= b, c ^= std::rotl(b, 4), b += a;
  }
  void finish() {
    c ^= b, c -= std::rotl(b, 14);
    a ^= c, a -= std::rotl(c, 11);
    b ^= a, b -= std::rotl(a, 25);
    c ^= b, c -= std::rotl(b, 16);
    a ^= c, a -= std::rotl(c, 4);
    b ^= a, b -= std::rotl(a, 14);
    c ^= b, c -= std::rotl(b, 24);
  }
};

bool startsWith(std::string_view bytes, std::size_t at, std::string_view signature) {
  return bytes.substr(at, signature.size()) == signature;
}

std::vector<std::size_t> signaturesIn(std::string_view bytes) {
  std::vector<std::size_t> places;
  for (std::size_t at = 0; at + 4 <= bytes.size(); ++at) {
    if (std::any_of(kSignatures.begin(), kSignatures.end(),
                    [&](std::string_view signature) { return startsWith(bytes, at, signature); })) {
      places.push_back(at);
    }
  }
  return places;
}

// The end of an object header's first chunk as its own prefix tells it.
std::size_t endOfObjectHeader(std::string_view bytes, std::size_t at) {
  const uint32_t flags = numberAt(bytes, at + 5, 1);
  std::size_t place = at + 6;
  if ((flags & kStoresTimes) != 0) place += kTimesSize;
  if ((flags & 0x10) != 0) place += 4;
  const std::size_t width = std::size_t{1} << (flags & 3);
  return place + width + numberAt(bytes, place, width);
}

// The end of the block at a place as the bytes there tell it; nothing for one that does not.
std::optional<std::size_t> toldEnd(std::string_view bytes, std::size_t at) {
  if (startsWith(bytes, at, "OHDR")) return endOfObjectHeader(bytes, at);
  if (startsWith(bytes, at, kSignatures[0]) && numberAt(bytes, at + 8, 1) >= 2) {
    return at + 12 + std::size_t{4} * numberAt(bytes, at + 9, 1);
  }
  return std::nullopt;
}

std::string_view extentOf(std::string_view bytes, Stretch extent) {
  return bytes.substr(extent.begin, extent.end - extent.begin);
}

void writeChecksum(std::string& bytes, std::size_t place, uint32_t sum) {
  for (std::size_t i = 0; i < kChecksumSize; ++i, sum >>= 8) {
    bytes[place + i] = static_cast<char>(sum & 0xFF);
  }
}

void mend(std::string& bytes, const ChecksummedBlock& block) {
  const auto& [begin, end] = block.extent;
  if (end < begin || end > bytes.size() || bytes.size() - block.place < kChecksumSize) return;
  if (block.place < end) writeChecksum(bytes, block.place, 0);
  writeChecksum(bytes, block.place, metadataChecksum(extentOf(bytes, block.extent)));
}

bool hasChecksumAt(std::string_view bytes, std::size_t begin, std::size_t end) {
  return end + kChecksumSize <= bytes.size() &&
         metadataChecksum(extentOf(bytes, {begin, end})) == numberAt(bytes, end);
}

std::optional<ChecksummedBlock> blockThatTellsItsEnd(std::string_view bytes, std::size_t begin) {
  const std::optional<std::size_t> end = toldEnd(bytes, begin);
  if (!end || *end < begin || *end > bytes.size() || !hasChecksumAt(bytes, begin, *end)) {
    return std::nullopt;
  }
  return ChecksummedBlock{.extent = {begin, *end}, .place = *end};
}

std::optional<ChecksummedBlock> blockWithChecksumBehind(const std::string& bytes,
                                                        std::size_t begin) {
  const std::size_t last = std::min(bytes.size(), begin + kLongestBlock);
  for (std::size_t end = begin + 4; end + kChecksumSize <= last; ++end) {
    if (hasChecksumAt(bytes, begin, end)) {
      return ChecksummedBlock{.extent = {begin, end}, .place = end};
    }
  }
  return std::nullopt;
}

// The blocks of a heap have theirs in their own header, and sizes that are powers of two.
std::optional<ChecksummedBlock> heapBlock(std::string bytes, std::size_t begin) {
  for (std::size_t size = 64; begin + size <= bytes.size(); size *= 2) {
    for (std::size_t place = begin + 13; place <= begin + 21; ++place) {
      const std::string before = bytes.substr(place, kChecksumSize);
      writeChecksum(bytes, place, 0);
      const uint32_t sum = metadataChecksum(extentOf(bytes, {begin, begin + size}));
      bytes.replace(place, kChecksumSize, before);
      if (sum != numberAt(bytes, place)) continue;
      return ChecksummedBlock{.extent = {begin, begin + size}, .place = place};
    }
  }
  return std::nullopt;
}

}  // namespace

uint32_t metadataChecksum(std::string_view bytes) {
  const uint32_t start = 0xDEADBEEF + static_cast<uint32_t>(bytes.size());
  Lanes lanes{start, start, start};
  if (bytes.empty()) return lanes.c;
  while (bytes.size() > 12) {
    lanes.a += numberAt(bytes, 0);
    lanes.b += numberAt(bytes, 4);
    lanes.c += numberAt(bytes, 8);
    lanes.mix();
    bytes.remove_prefix(12);
  }
  lanes.a += numberAt(bytes, 0);
  lanes.b += numberAt(bytes, 4);
  lanes.c += numberAt(bytes, 8);
  lanes.finish();
  return lanes.c;
}

std::vector<ChecksummedBlock> checksummedBlocks(const std::string& bytes) {
  std::vector<ChecksummedBlock> blocks;
  for (const std::size_t begin : signaturesIn(bytes)) {
    std::optional<ChecksummedBlock> block = blockThatTellsItsEnd(bytes, begin);
    if (!block) block = blockWithChecksumBehind(bytes, begin);
    if (!block && startsWith(bytes, begin, "FHDB")) block = heapBlock(bytes, begin);
    if (block) blocks.push_back(*block);
  }
  return blocks;
}

std::vector<Stretch> metadataBlocks(const std::string& bytes,
                                    const std::vector<ChecksummedBlock>& checksummed) {
  std::vector<Stretch> known;
  for (const ChecksummedBlock& block : checksummed) known.push_back(block.extent);
  std::vector<Stretch> all = known;
  for (const std::size_t begin : signaturesIn(bytes)) {
    if (std::none_of(known.begin(), known.end(),
                     [&](const Stretch& block) { return block.begin == begin; })) {
      all.push_back({begin, std::min(bytes.size(), begin + kMetadataSize)});
    }
  }
  return all;
}

void clearTimes(std::string& bytes) {
  const std::vector<ChecksummedBlock> blocks = checksummedBlocks(bytes);
  for (const ChecksummedBlock& block : blocks) {
    const std::size_t begin = block.extent.begin;
    if (!startsWith(bytes, begin, "OHDR") || (numberAt(bytes, begin + 5, 1) & kStoresTimes) == 0) {
      continue;
    }
    bytes.replace(begin + 6, kTimesSize, kTimesSize, '\0');
  }
  mendChecksums(bytes, blocks);
}

void mendChecksums(std::string& bytes, const std::vector<ChecksummedBlock>& blocks) {
  for (const ChecksummedBlock& block : blocks) {
    if (block.extent.begin >= bytes.size()) continue;
    mend(bytes, block);
    const std::optional<std::size_t> end = toldEnd(bytes, block.extent.begin);
    if (end && *end != block.extent.end) {
      mend(bytes, {.extent = {block.extent.begin, *end}, .place = *end});
    }
  }
}

}  // namespace fuzz
