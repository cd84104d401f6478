#pragma once

#include <gtest/gtest.h>

#include "Dispatch.h"
#include "Form.h"
#include "control.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"

namespace winetest {

// A control without any window, holding a drawn section.
class DrawnControl : public testing::Test {
 protected:
  static constexpr int kWidth = 300, kHeight = 200;

  DrawnControl() {
    support::makeTinySet(folder_.file("tiny.nc"));
    host::setExtent(object_, kWidth, kHeight);
    object_.call(L"NcFile", {host::wide(folder_.file("tiny.nc"))});
    object_.call(L"NewSection");
    object_.call(L"AddSection", {354.5, -1});
    object_.call(L"AddSection", {354.5, 0.4});
    object_.call(L"EndSection");
    object_.call(L"Draw");
  }

  HRESULT draw(HDC dc, const RECTL& bounds, DWORD aspect = DVASPECT_CONTENT) {
    return control_.view()->Draw(aspect, -1, nullptr, nullptr, nullptr, dc, &bounds, nullptr,
                                 nullptr, 0);
  }
  // The whole picture as the control draws it by itself.
  host::Picture plain() {
    return host::takePicture(kWidth, kHeight, [&](HDC dc) {
      EXPECT_EQ(draw(dc, {0, 0, kWidth, kHeight}), S_OK);
    });
  }

  support::TempFolder folder_;
  BareControl control_;
  host::Object object_{control_.identity()};
};

}  // namespace winetest
