#include "mutate.h"

#include <algorithm>
#include <array>

namespace fuzz {
namespace {

constexpr std::size_t kLongestRun = 16;
constexpr std::size_t kLongestDamage = 256;

constexpr std::array<uint64_t, 24> kNumbers = {
    0, 1, 2, 3, 4, 7, 8, 16, 0x7F, 0x80, 0xFF, 0x7FFF, 0x8000, 0xFFFF, 0x10000, 0x7FFFFFFE,
    0x7FFFFFFF, 0x80000000, 0xFFFFFFFE, 0xFFFFFFFF, 0x100000000, 0x7FFFFFFFFFFFFFFF,
    0x8000000000000000, 0xFFFFFFFFFFFFFFFF};

class Mutation {
 public:
  Mutation(std::string& bytes, const Layout& layout, Random& random)
      : bytes_(bytes), layout_(layout), random_(random) {}

  void once() {
    if (bytes_.empty()) return;
    const std::size_t kind = random_.below(layout_.keepLength ? 14 : 18);
    if (kind < 3) {
      flipBit();
    } else if (kind < 6) {
      overwrite();
    } else if (kind < 9) {
      plantNumber();
    } else if (kind < 12) {
      changeNumber();
    } else if (kind < 13) {
      moveNumber();
    } else if (kind < 14) {
      copyBlock();
    } else if (kind < 15) {
      deleteBlock();
    } else if (kind < 17) {
      insertBlock();
    } else {
      bytes_.resize(random_.below(bytes_.size()));
    }
  }

 private:
  // A place in the structure mostly, anywhere else now and then.
  std::size_t place() {
    const auto& stretches = layout_.structure;
    if (!stretches.empty() && !random_.oneIn(8)) {
      const Stretch& stretch = stretches[random_.below(stretches.size())];
      if (stretch.begin < bytes_.size()) {
        const std::size_t end = std::min(stretch.end, bytes_.size());
        return stretch.begin + random_.below(end - stretch.begin);
      }
    }
    return random_.below(bytes_.size());
  }

  // Place and width of a number within the file.
  Stretch numberPlace() {
    static constexpr std::array<std::size_t, 6> kWidths = {1, 2, 4, 4, 4, 8};
    std::size_t width = kWidths[random_.below(kWidths.size())];
    if (random_.oneIn(4) || layout_.alignment == 1) {
      const std::size_t at = place();
      return {at, std::min(at + width, bytes_.size())};
    }
    width = std::max(width, layout_.alignment);
    const std::size_t at = place() / layout_.alignment * layout_.alignment;
    return {at, std::min(at + width, bytes_.size())};
  }

  uint64_t read(Stretch at) const {
    uint64_t value = 0;
    for (std::size_t i = at.begin; i < at.end; ++i) {
      const std::size_t from = layout_.bigEndian ? i : at.begin + (at.end - 1 - i);
      value = value << 8 | static_cast<unsigned char>(bytes_[from]);
    }
    return value;
  }
  void write(Stretch at, uint64_t value) {
    for (std::size_t i = at.begin; i < at.end; ++i, value >>= 8) {
      const std::size_t to = layout_.bigEndian ? at.begin + (at.end - 1 - i) : i;
      bytes_[to] = static_cast<char>(value & 0xFF);
    }
  }

  void flipBit() {
    const std::size_t at = place();
    bytes_[at] = static_cast<char>(static_cast<unsigned>(bytes_[at]) ^ 1U << random_.below(8));
  }
  void overwrite() {
    const std::size_t at = place();
    const std::size_t end = std::min(at + 1 + random_.below(kLongestRun), bytes_.size());
    for (std::size_t i = at; i < end; ++i) bytes_[i] = static_cast<char>(random_.next() & 0xFF);
  }
  void plantNumber() {
    const Stretch at = numberPlace();
    const uint64_t value = random_.oneIn(6) ? bytes_.size() - 4 + random_.below(8)
                                            : kNumbers[random_.below(kNumbers.size())];
    write(at, value);
  }
  void changeNumber() {
    const Stretch at = numberPlace();
    const uint64_t value = read(at);
    const uint64_t step = 1 + random_.below(8);
    switch (random_.below(4)) {
      case 0:
        return write(at, value + step);
      case 1:
        return write(at, value - step);
      case 2:
        return write(at, value * 2);
      default:
        return write(at, value << (8 * random_.below(8)));
    }
  }
  void moveNumber() {
    const Stretch from = numberPlace();
    const Stretch to = numberPlace();
    write(to, read(from));
  }
  std::size_t blockFrom(std::size_t at) {
    return std::min(1 + random_.below(kLongestDamage), bytes_.size() - at);
  }
  void copyBlock() {
    const std::size_t from = place();
    const std::size_t to = place();
    const std::string block = bytes_.substr(from, blockFrom(from));
    const std::size_t length = std::min(block.size(), bytes_.size() - to);
    bytes_.replace(to, length, block, 0, length);
  }
  void deleteBlock() {
    const std::size_t at = place();
    bytes_.erase(at, blockFrom(at));
  }
  void insertBlock() {
    const std::size_t from = place();
    const std::string block = random_.oneIn(3) ? std::string(1 + random_.below(kLongestDamage), '\0')
                                               : bytes_.substr(from, blockFrom(from));
    bytes_.insert(place(), block);
  }

  std::string& bytes_;
  const Layout& layout_;
  Random& random_;
};

}  // namespace

void mutate(std::string& bytes, const Layout& layout, Random& random) {
  std::size_t times = 1;
  if (!random.oneIn(2)) times += random.below(random.oneIn(4) ? 16 : 4);
  Mutation mutation(bytes, layout, random);
  for (; times > 0; --times) mutation.once();
}

}  // namespace fuzz
