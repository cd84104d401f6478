#include "arrangedPieces.h"

#include <random>
#include <utility>

namespace bench {

using OcxContr::ScreenPiece;

const char* nameOf(Arrangement arrangement) {
  static constexpr std::array kNames = {"chain",      "shuffled chain", "soup",
                                        "same place", "one line",       "lattice"};
  return kNames[static_cast<std::size_t>(arrangement)];
}

double tolerance(Arrangement arrangement) { return arrangement == Arrangement::Soup ? 1e6 : 2.0; }

std::vector<ScreenPiece> arranged(Arrangement arrangement, int32_t count) {
  const auto many = static_cast<uint32_t>(count);
  std::mt19937 random(7);
  const auto below = [&](uint32_t limit) { return static_cast<float>(random() % limit); };
  std::vector<ScreenPiece> pieces;
  for (int32_t n = 0; n < count; ++n) {
    const auto at = static_cast<float>(n);
    switch (arrangement) {
      case Arrangement::Chain:
      case Arrangement::ShuffledChain:
        pieces.push_back({at, below(400) / 1000, at + 1, below(400) / 1000});
        break;
      case Arrangement::Soup: {
        const float x = below(1 << 24) / 8000, y = below(1 << 24) / 8000;
        pieces.push_back({x, y, x + below(1000) / 200, y + below(1000) / 200});
        break;
      }
      case Arrangement::SamePlace:
        pieces.push_back({7, 7, 7, 7});
        break;
      case Arrangement::OneLine: {
        const float from = below(many), to = below(many);
        pieces.push_back({from, 5, to, 5});
        break;
      }
      case Arrangement::Lattice: {
        const float x1 = below(100), y1 = below(100), x2 = below(100), y2 = below(100);
        pieces.push_back({x1, y1, x2, y2});
        break;
      }
    }
  }
  if (arrangement == Arrangement::ShuffledChain) {
    for (std::size_t n = pieces.size(); n > 1; --n) std::swap(pieces[n - 1], pieces[random() % n]);
  }
  return pieces;
}

}  // namespace bench
