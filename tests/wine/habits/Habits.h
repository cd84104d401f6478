#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "Caller.h"
#include "DrawnControl.h"

namespace winetest {

// A drawn control with a caller at it, and ways to see what arrived in it.
class Habits : public DrawnControl {
 protected:
  // The code of sending a 32-bit number; the number that arrived is put into received_.
  HRESULT sendNumber(const Sent& number) {
    received_ = 0;
    for (const int from : {0, std::numeric_limits<int>::min()}) {
      // A time step below 1 is kept and shows what was added to it; one too large becomes 1.
      object_.call(L"SetCurrentTime", {from});
      const Answer answer = caller_.call(L"AdvanceTime", {number});
      if (answer.code != S_OK) return answer.code;
      received_ = std::int64_t{answer.result.number()} - from;
      if (received_ <= 0) break;
    }
    return S_OK;
  }

  // The picture of a key of one colour for all values, up to a number that the legend shows.
  host::Picture keyPicture(const Sent& high, const Sent& colour, HRESULT* code = nullptr) {
    object_.call(L"NewColorKey");
    const Answer answer = caller_.call(L"AddColorKey", {Sent(-1000), high, colour});
    if (code != nullptr) *code = answer.code;
    object_.put(L"UseColorKey", true);
    object_.call(L"ReDraw");
    return plain();
  }
  // Whether there are pixels of a colour.
  static bool has(const host::Picture& picture, std::uint32_t colour) {
    for (int y = 0; y < picture.height; ++y) {
      for (int x = 0; x < picture.width; ++x) {
        if (picture.at(x, y) == colour) return true;
      }
    }
    return false;
  }

  Caller caller_{control_.identity()};
  std::int64_t received_ = 0;
};

}  // namespace winetest
