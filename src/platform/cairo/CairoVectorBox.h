#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/PictureBox.h"
#include "platform/cairo/Lettering.h"
#include "platform/cairo/cairoHandles.h"

namespace platform {

// A picture box that keeps what is drawn, to be drawn again on any Cairo surface at any
// resolution. Its combination with another surface lays the other's ink over its own, which is
// the same picture as that of pixels as long as the other's ink stands on neutral white.
class CairoVectorBox : public PictureBox {
 public:
  static constexpr int32_t kLargestSide = 32767;

  explicit CairoVectorBox(const Lettering& lettering) : lettering_(lettering) {}

  // A side above kLargestSide is cut to it.
  void Move(int32_t left, int32_t top, int32_t width, int32_t height) override;
  float ScaleWidth() const override { return static_cast<float>(width_); }
  float ScaleHeight() const override { return static_cast<float>(height_); }
  void Cls() override;
  void Refresh() override {}
  void Line(float x1, float y1, float x2, float y2, Colour colour) override;
  void Box(float x1, float y1, float x2, float y2, Colour colour) override;
  void Print(std::string_view text) override;
  float TextWidth(std::string_view text) const override;
  float TextHeight(std::string_view text) const override;
  void AndFrom(const PictureBox& source) override;

  // Draws everything kept, on white, in units of one pixel.
  void replay(cairo_t* context) const;

 private:
  // A drawn thing: a box or a line between two corners, or a text at the first of them.
  struct Ink {
    enum class Kind : int32_t { Box, Line, Text } kind;
    float x1, y1, x2, y2;
    Colour colour;
    int32_t detail;  // thickness of a line; place of a text in texts_
  };
  struct Text {
    std::string drawable;
    platform::Font font;
  };
  // Draws the line at a place and those that go on from it; gives the place of the last one.
  std::size_t replayLines(cairo_t* context, std::size_t first) const;

  const Lettering& lettering_;
  int32_t width_ = 0, height_ = 0;
  std::vector<Ink> inks_;
  std::vector<Text> texts_;
};

}  // namespace platform
