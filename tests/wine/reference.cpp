#include "reference.h"

#include <algorithm>

#include "support/sampleSets.h"

namespace winetest {

Reference::Reference(int width, int height)
    : members_({Picture1_, picDateTime_, picSection_, picContours_}, desktop_) {
  support::resetState();
  members_.Resize(width, height);
}

bool Reference::draw(const std::string& file, const std::string& variable, const Path& path,
                     int time) {
  if (members_.NcFile(file) != 1) return false;
  members_.NewSection();
  for (const auto& [x, y] : path) {
    members_.AddSection(static_cast<float>(x), static_cast<float>(y));
  }
  if (members_.EndSection() != 1 || members_.SetVarByName(variable) != 1) return false;
  members_.SetCurrentTime(time);
  return true;
}

host::Picture Reference::picture() const {
  host::Picture picture{Picture1_.width(), Picture1_.height(), {}};
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      const auto colour = static_cast<uint32_t>(Picture1_.pixel(x, y));
      picture.pixels.push_back((colour & 0xFF) << 16 | (colour & 0xFF00) | colour >> 16);
    }
  }
  return picture;
}

uint32_t rampByHand(double t) {
  if (!(t > 0)) return 0xFFFFFF;
  t = std::min(t, 1.0);
  constexpr double full = 245;
  const int band = t <= 1.0 / 3 ? 0 : t <= 2.0 / 3 ? 1 : 2;
  const auto pale = static_cast<uint32_t>(full * (1 - (3 * t - band)));
  constexpr uint32_t bright = 245;
  if (band == 0) return pale << 16 | bright << 8 | pale;
  if (band == 1) return pale << 16 | pale << 8 | bright;
  return bright << 16 | pale << 8 | pale;
}

}  // namespace winetest
