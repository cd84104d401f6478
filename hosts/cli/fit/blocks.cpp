#include "fit/blocks.h"

#include <algorithm>

namespace cli::fit {

Blocks::Blocks(std::vector<std::size_t> lengths, const std::vector<bool>& divided, bool rows)
    : all_(std::move(lengths)), most_(all_.size(), 1), start_(all_.size(), 0) {
  std::size_t room = kBlock;
  for (std::size_t at = all_.size(); at-- > 0;) {
    if (all_[at] == 0) atEnd_ = true;
    if (divided[at]) {
      room = all_[at] == 1 ? room : 1;
      continue;
    }
    const bool whole = rows && at + 2 >= all_.size();
    most_[at] = whole ? all_[at] : std::clamp<std::size_t>(all_[at], 1, room);
    room = most_[at] == all_[at]
               ? std::max<std::size_t>(room / std::max<std::size_t>(all_[at], 1), 1)
               : 1;
  }
}

std::size_t Blocks::count() const {
  std::size_t count = 1;
  for (std::size_t at = 0; at < all_.size(); ++at) {
    count *= (all_[at] + most_[at] - 1) / std::max<std::size_t>(most_[at], 1);
  }
  return count;
}

void Blocks::next() {
  for (std::size_t at = all_.size(); at-- > 0;) {
    start_[at] += most_[at];
    if (start_[at] < all_[at]) return;
    start_[at] = 0;
  }
  atEnd_ = true;
}

std::vector<std::size_t> Blocks::lengths() const {
  std::vector<std::size_t> lengths;
  for (std::size_t at = 0; at < all_.size(); ++at) {
    lengths.push_back(std::min(most_[at], all_[at] - start_[at]));
  }
  return lengths;
}

}  // namespace cli::fit
