#pragma once

#include "platform/PictureBox.h"

namespace cli {

// A picture box that nobody looks at, for commands that want the control's work but not its
// picture. It has a size and a font, so that drawing on it goes the usual way.
class BlankPictureBox : public platform::PictureBox {
 public:
  void Move(int32_t, int32_t, int32_t, int32_t) override {}
  float ScaleWidth() const override { return 1000.0F; }
  float ScaleHeight() const override { return 600.0F; }
  void Cls() override {}
  void Refresh() override {}
  void Line(float, float, float, float, platform::Colour) override {}
  void Box(float, float, float, float, platform::Colour) override {}
  void Print(std::string_view) override {}
  float TextWidth(std::string_view text) const override {
    return 6.0F * static_cast<float>(text.size());
  }
  float TextHeight(std::string_view) const override { return 13.0F; }
  void AndFrom(const platform::PictureBox&) override {}
};

struct BlankPictures {
  BlankPictureBox Picture1, picDateTime, picSection, picContours;
  platform::Pictures pictures() { return {Picture1, picDateTime, picSection, picContours}; }
};

}  // namespace cli
