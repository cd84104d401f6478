#include <algorithm>
#include <array>
#include <cstdint>

#include "Dispatch.h"
#include "Form.h"
#include "control.h"
#include "tour.h"

// The tour as a Windows host makes it: the members of the finished control, called by their names.

namespace fuzz {
namespace {

// Enough to meet every type of the seeds; a damaged file may have thousands.
constexpr int kMostItems = 6;
constexpr int kWidth = 240, kHeight = 180;

// Along, across and through the grid of the seeds, and somewhere else.
constexpr std::array<std::array<double, 4>, 4> kPaths = {{{352, -1, 360, -1},
                                                          {352, -1, 352, 0.5},
                                                          {352, -1, 360, 0.5},
                                                          {10, -5, 30, 5}}};

// Cells are coloured; paper, axes and letters are black, white or grey.
bool isColoured(uint32_t pixel) {
  return (pixel & 0xFF) != (pixel >> 8 & 0xFF) || (pixel & 0xFF) != (pixel >> 16 & 0xFF);
}

class Session {
 public:
  Session() { host::setExtent(object_, kWidth, kHeight); }

  bool open(const std::string& name) {
    return object_.call(L"NcFile", {host::wide(name)}).number() == 1;
  }
  int items() { return std::min(object_.get(L"NumDrawAbleItems").number(), kMostItems); }

  // Draws an item along every path, in both views; whether something could be drawn.
  bool draw(int item) {
    object_.call(L"SetVarByOrder", {item});
    object_.put(L"DrawVerticalSection", true);
    bool drawn = false;
    for (const auto& path : kPaths) drawn |= drawAlong(path);
    step();
    object_.put(L"DrawProfile", true);
    object_.call(L"ReDraw");
    host::drawWithoutForm(object_, kWidth, kHeight);
    return drawn;
  }

 private:
  bool drawAlong(const std::array<double, 4>& path) {
    object_.call(L"NewSection");
    object_.call(L"AddSection", {path[0], path[1]});
    object_.call(L"AddSection", {path[2], path[3]});
    const bool built = object_.call(L"EndSection").number() == 1;
    object_.call(L"Draw");
    const host::Picture picture = host::drawWithoutForm(object_, kWidth, kHeight);
    return built && std::ranges::any_of(picture.pixels, isColoured);
  }

  void step() {
    try {
      object_.call(L"AdvanceTime", {1});
    } catch (const host::HostError&) {
      // A run-time error is the host's to handle; one that ends the process is not.
    }
  }

  winetest::BareControl control_;
  host::Object object_{control_.identity()};
};

}  // namespace

Outcome tour(const std::string& name) {
  // The control's library stays loaded from one control to the next, as hosts keep it.
  static const winetest::Library library;
  Session session;
  const bool opened = session.open(name);
  bool drawn = false;
  for (int item = 1; item <= std::max(session.items(), 1); ++item) drawn |= session.draw(item);
  return drawn ? Outcome::Drawn : opened ? Outcome::Opened : Outcome::Refused;
}

}  // namespace fuzz
