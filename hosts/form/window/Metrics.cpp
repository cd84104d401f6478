#include "window/Metrics.h"

#include <cstdlib>
#include <cwchar>

namespace form {
namespace {

class ScreenDc {
 public:
  ScreenDc() : dc_(GetDC(nullptr)) {}
  ~ScreenDc() { ReleaseDC(nullptr, dc_); }
  ScreenDc(const ScreenDc&) = delete;
  ScreenDc& operator=(const ScreenDc&) = delete;
  operator HDC() const { return dc_; }

 private:
  HDC dc_;
};

}  // namespace

SIZE pixelsPerInch() {
  const ScreenDc screen;
  return {GetDeviceCaps(screen, LOGPIXELSX), GetDeviceCaps(screen, LOGPIXELSY)};
}

SIZEL himetricOf(SIZE pixels) {
  const SIZE inch = pixelsPerInch();
  return {MulDiv(pixels.cx, kHimetricPerInch, inch.cx),
          MulDiv(pixels.cy, kHimetricPerInch, inch.cy)};
}

LOGFONTW messageFont() {
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof metrics;
  if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) {
    return metrics.lfMessageFont;
  }
  LOGFONTW font = {};
  GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof font, &font);
  return font;
}

int pointsOf(const LOGFONTW& font) {
  constexpr int kPointsPerInch = 72;
  return MulDiv(std::abs(font.lfHeight), kPointsPerInch, pixelsPerInch().cy);
}

Metrics::Metrics() {
  constexpr wchar_t kLetters[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  const LOGFONTW wanted = messageFont();
  font_ = CreateFontIndirectW(&wanted);
  const ScreenDc screen;
  const HGDIOBJ before = SelectObject(screen, font_);
  SIZE extent = {};
  TEXTMETRICW metrics = {};
  GetTextExtentPoint32W(screen, kLetters, 52, &extent);
  GetTextMetricsW(screen, &metrics);
  SelectObject(screen, before);
  baseWidth_ = (extent.cx / 26 + 1) / 2;
  baseHeight_ = metrics.tmHeight;
}

Metrics::~Metrics() { DeleteObject(font_); }

SIZE Metrics::extentOf(const wchar_t* text) const {
  const ScreenDc screen;
  const HGDIOBJ before = SelectObject(screen, font_);
  RECT area = {};
  DrawTextW(screen, text, -1, &area, DT_CALCRECT | DT_SINGLELINE);
  SelectObject(screen, before);
  return {area.right, area.bottom};
}

}  // namespace form
