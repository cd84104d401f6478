#pragma once

#include <cstddef>
#include <vector>

namespace cli::fit {

// The values of a block: 8 megabytes.
inline constexpr std::size_t kBlock = std::size_t{1} << 20;

// Divides an array into blocks of at most so many values, each of them as much of the last
// dimensions as fits. Dimensions that are not whole are divided before any other; with `rows` the
// last two are whole whatever their size.
class Blocks {
 public:
  Blocks(std::vector<std::size_t> lengths, const std::vector<bool>& divided, bool rows);

  std::size_t count() const;  // of all blocks
  bool atEnd() const { return atEnd_; }
  void next();
  const std::vector<std::size_t>& start() const { return start_; }
  std::vector<std::size_t> lengths() const;  // of this block

 private:
  std::vector<std::size_t> all_, most_, start_;
  bool atEnd_ = false;
};

}  // namespace cli::fit
