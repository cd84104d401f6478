#pragma once

#include <windows.h>

namespace form {

inline constexpr int kHimetricPerInch = 2540;

// Of the screen.
SIZE pixelsPerInch();
SIZEL himetricOf(SIZE pixels);

// The font that the user has chosen for texts in windows, and its size in points.
LOGFONTW messageFont();
int pointsOf(const LOGFONTW& font);

// The message font with the units that layouts are made of: a quarter of its average width and
// an eighth of its height, as dialogs have them.
class Metrics {
 public:
  Metrics();
  ~Metrics();
  Metrics(const Metrics&) = delete;
  Metrics& operator=(const Metrics&) = delete;

  HFONT font() const { return font_; }
  int across(int units) const { return MulDiv(units, baseWidth_, 4); }
  int down(int units) const { return MulDiv(units, baseHeight_, 8); }
  // Pixels that a text takes, its mnemonic's mark left out.
  SIZE extentOf(const wchar_t* text) const;

 private:
  HFONT font_;
  int baseWidth_ = 1, baseHeight_ = 1;
};

}  // namespace form
