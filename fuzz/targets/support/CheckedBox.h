#pragma once

#include "platform/PictureBox.h"

namespace fuzz {

// A picture box that draws nothing and holds what it is told to draw against what every device
// relies on: boxes and lines that were clipped stay near the surface, texts are drawable. What is
// drawn in one drawing is counted, and more than any picture can need is a failure.
class CheckedBox : public platform::PictureBox {
 public:
  void Move(int32_t left, int32_t top, int32_t width, int32_t height) override;
  float ScaleWidth() const override { return static_cast<float>(width_); }
  float ScaleHeight() const override { return static_cast<float>(height_); }
  void Cls() override;
  void Refresh() override {}
  void Line(float x1, float y1, float x2, float y2, platform::Colour colour) override;
  void Box(float x1, float y1, float x2, float y2, platform::Colour colour) override;
  void Print(std::string_view text) override;
  float TextWidth(std::string_view text) const override;
  float TextHeight(std::string_view text) const override;
  void AndFrom(const platform::PictureBox& source) override;

 private:
  void count();
  int32_t width_ = 0, height_ = 0;
  int32_t operations_ = 0;  // since the last Cls
};

// The four pictures of a control.
struct CheckedPictures {
  CheckedBox Picture1, picDateTime, picSection, picContours;
  platform::Pictures pictures() { return {Picture1, picDateTime, picSection, picContours}; }
};

}  // namespace fuzz
