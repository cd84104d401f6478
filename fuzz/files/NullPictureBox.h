#pragma once

#include "platform/PictureBox.h"

namespace fuzz {

// A picture box that keeps nothing: drawing on it costs next to no time.
class NullPictureBox : public platform::PictureBox {
 public:
  void Move(int32_t, int32_t, int32_t width, int32_t height) override {
    width_ = width;
    height_ = height;
  }
  float ScaleWidth() const override { return static_cast<float>(width_); }
  float ScaleHeight() const override { return static_cast<float>(height_); }
  void Cls() override { CurrentX = CurrentY = 0; }
  void Refresh() override {}
  void Line(float, float, float, float, platform::Colour) override {}
  void Box(float, float, float, float, platform::Colour) override {}
  void Print(std::string_view text) override {
    CurrentX = 0;
    CurrentY += TextHeight(text);
  }
  float TextWidth(std::string_view text) const override {
    return 6.0F * static_cast<float>(text.size());
  }
  float TextHeight(std::string_view) const override { return 13; }
  void AndFrom(const platform::PictureBox&) override {}

 private:
  int32_t width_ = 0, height_ = 0;
};

}  // namespace fuzz
