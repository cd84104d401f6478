#include "platform/gdi/GdiPictureBox.h"

#include <algorithm>
#include <cmath>

#include "platform/clipLine.h"
#include "platform/drawableText.h"
#include "platform/gdi/bitmapSize.h"
#include "platform/gdi/wideText.h"
#include "platform/thinLine.h"
#include "util/rounding.h"

namespace platform {
namespace {

using util::asDouble;

constexpr int32_t kLargestSide = 32767;
constexpr int32_t kWidestLine = 1000;
constexpr std::size_t kMostFonts = 16;
// GDI computes with 27 bits.
constexpr double kFarthest = 1e6;

COLORREF colorRef(Colour colour) { return static_cast<COLORREF>(colour) & 0x00FFFFFF; }

std::wstring printable(std::string_view text) { return toWide(drawableText(text)); }

int placeOf(float coordinate) {
  return util::roundToLong(std::clamp(asDouble(coordinate), -kFarthest, kFarthest));
}

BITMAPINFO bitmapInfo(int32_t width, int32_t height) {
  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;  // rows from the top
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  return info;
}

FontHandle makeFont(HDC dc, const Font& font) {
  LOGFONTW wanted = {};
  const double points = std::clamp(static_cast<double>(font.Size), 1.0, 500.0);
  wanted.lfHeight = -util::roundToLong(points * GetDeviceCaps(dc, LOGPIXELSY) / 72);
  wanted.lfWeight = font.Bold ? FW_BOLD : FW_NORMAL;
  wanted.lfItalic = font.Italic;
  wanted.lfUnderline = font.Underline;
  wanted.lfCharSet = DEFAULT_CHARSET;
  wanted.lfPitchAndFamily = VARIABLE_PITCH | FF_SWISS;
  // Grey edges would turn into stains where two surfaces are combined bit by bit.
  wanted.lfQuality = NONANTIALIASED_QUALITY;
  const std::wstring_view face = L"MS Sans Serif";
  std::copy(face.begin(), face.end(), wanted.lfFaceName);
  return FontHandle(CreateFontIndirectW(&wanted));
}

}  // namespace

GdiPictureBox::GdiPictureBox(std::function<void()> show)
    : show_(std::move(show)), dc_(CreateCompatibleDC(nullptr)) {
  stockBitmap_ = GetCurrentObject(dc_.get(), OBJ_BITMAP);
  stockFont_ = GetCurrentObject(dc_.get(), OBJ_FONT);
  SetBkMode(dc_.get(), TRANSPARENT);
  SetTextAlign(dc_.get(), TA_LEFT | TA_TOP);
}

GdiPictureBox::~GdiPictureBox() = default;

void GdiPictureBox::Move(int32_t, int32_t, int32_t width, int32_t height) {
  width = std::clamp(width, 0, kLargestSide);
  height = std::clamp(height, 0, kLargestSide);
  if (width == width_ && height == height_) return;
  SelectObject(dc_.get(), stockBitmap_);
  bitmap_.reset();
  width_ = height_ = 0;
  pixels_ = nullptr;
  rows_ = {};
  if (!isBitmapSize(width, height)) return;
  const BITMAPINFO info = bitmapInfo(width, height);
  void* bits = nullptr;
  bitmap_.reset(CreateDIBSection(dc_.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (!bitmap_ || bits == nullptr) return;
  rows_ = PixelRows(static_cast<uint32_t*>(bits), width, width, height);
  SelectObject(dc_.get(), bitmap_.get());
  pixels_ = static_cast<uint32_t*>(bits);
  width_ = width;
  height_ = height;
  Cls();
}

void GdiPictureBox::beginWriting() {
  if (gdiIsDrawing_) GdiFlush();
  gdiIsDrawing_ = false;
}

void GdiPictureBox::drawWithGdi(int32_t first, int32_t last) {
  rows_.open(first, last);
  gdiIsDrawing_ = true;
}

void GdiPictureBox::Cls() {
  CurrentX = CurrentY = 0;
  if (pixels_ == nullptr) return;
  GdiFlush();
  rows_.clear();
}

void GdiPictureBox::Refresh() {
  if (show_) show_();
}

void GdiPictureBox::Line(float x1, float y1, float x2, float y2, Colour colour) {
  const int32_t thickness = std::clamp(DrawWidth, 1, kWidestLine);
  const auto line = clipLine({asDouble(x1), asDouble(y1), asDouble(x2), asDouble(y2)}, width_,
                             height_, thickness);
  if (pixels_ == nullptr || !line) return;
  if (thickness == 1) {
    beginWriting();
    drawThinLine(rows_, *line, colour);
    return;
  }
  const auto [top, bottom] = std::minmax(line->y1, line->y2);
  drawWithGdi(util::roundToLong(top) - thickness - 1, util::roundToLong(bottom) + thickness + 1);
  const PenHandle pen(CreatePen(PS_SOLID, thickness, colorRef(colour)));
  const Selected selected(dc_.get(), pen.get());
  MoveToEx(dc_.get(), util::roundToLong(line->x1), util::roundToLong(line->y1), nullptr);
  // The round end covers the end point, short of which GDI stops.
  LineTo(dc_.get(), util::roundToLong(line->x2), util::roundToLong(line->y2));
}

void GdiPictureBox::Box(float x1, float y1, float x2, float y2, Colour colour) {
  const PixelBox box = pixelBox(x1, y1, x2, y2, width_, height_);
  if (pixels_ == nullptr || box.empty()) return;
  beginWriting();
  rows_.fill(box, colour);
}

void GdiPictureBox::Cells(const CellBoxes& cells) {
  if (pixels_ == nullptr) return;
  beginWriting();
  if (!rows_.paint(cells)) PictureBox::Cells(cells);
}

void GdiPictureBox::Print(std::string_view text) {
  const float height = TextHeight(text);
  if (pixels_ != nullptr && !std::isnan(CurrentX) && !std::isnan(CurrentY)) {
    const std::wstring wide = printable(text);
    const int top = placeOf(CurrentY);
    // Letters may reach out of their line, but not by another one.
    const int reach = util::roundToLong(asDouble(height)) + 1;
    drawWithGdi(top - reach, top + 2 * reach);
    SetTextColor(dc_.get(), colorRef(ForeColor));
    TextOutW(dc_.get(), placeOf(CurrentX), top, wide.c_str(),
             static_cast<int>(wide.size()));
  }
  CurrentX = 0;
  CurrentY += height;
}

float GdiPictureBox::TextWidth(std::string_view text) const {
  selectFont();
  const std::wstring wide = printable(text);
  SIZE size = {};
  GetTextExtentPoint32W(dc_.get(), wide.c_str(), static_cast<int>(wide.size()), &size);
  return static_cast<float>(size.cx);
}

float GdiPictureBox::TextHeight(std::string_view) const {
  selectFont();
  TEXTMETRICW metrics = {};
  GetTextMetricsW(dc_.get(), &metrics);
  return static_cast<float>(metrics.tmHeight);
}

void GdiPictureBox::AndFrom(const PictureBox& source) {
  const auto* other = dynamic_cast<const GdiPictureBox*>(&source);
  if (other == nullptr || pixels_ == nullptr) return;
  GdiFlush();
  rows_.andFrom(other->rows_);
}

// With the contexts go the fonts, one of which each has selected, so that there is nothing to
// select anew, which could fail.
void GdiPictureBox::TakeFrom(PictureBox& source) {
  auto* other = dynamic_cast<GdiPictureBox*>(&source);
  if (other == nullptr || other->width_ != width_ || other->height_ != height_) {
    PictureBox::TakeFrom(source);
    return;
  }
  Cls();
  std::swap(pixels_, other->pixels_);
  std::swap(rows_, other->rows_);
  bitmap_.swap(other->bitmap_);
  fonts_.swap(other->fonts_);
  dc_.swap(other->dc_);
  std::swap(stockBitmap_, other->stockBitmap_);
  std::swap(stockFont_, other->stockFont_);
  std::swap(gdiIsDrawing_, other->gdiIsDrawing_);
}

Colour GdiPictureBox::pixel(int32_t x, int32_t y) const {
  if (x < 0 || y < 0 || x >= width_ || y >= height_) return basicPalette(15);
  GdiFlush();
  return colourOf(rows_.pixel(x, y));
}

void GdiPictureBox::copyTo(HDC target, const RECT& part) const {
  GdiFlush();
  rows_.settle();
  BitBlt(target, part.left, part.top, part.right - part.left, part.bottom - part.top, dc_.get(),
         part.left, part.top, SRCCOPY);
}

bool GdiPictureBox::drawInto(HDC target, const RECT& rectangle) const {
  if (pixels_ == nullptr) return true;
  GdiFlush();
  rows_.settle();
  // From the pixels and not from our context, since printers and metafiles take no transfer
  // from a context of the screen.
  const BITMAPINFO info = bitmapInfo(width_, height_);
  const int mode = SetStretchBltMode(target, COLORONCOLOR);
  const int rows = StretchDIBits(target, rectangle.left, rectangle.top,
                                 rectangle.right - rectangle.left, rectangle.bottom - rectangle.top,
                                 0, 0, width_, height_, pixels_, &info, DIB_RGB_COLORS, SRCCOPY);
  if (mode != 0) SetStretchBltMode(target, mode);
  return rows != 0 && rows != static_cast<int>(GDI_ERROR);
}

// The measuring members are const, so the font follows the Font property at its next use.
void GdiPictureBox::selectFont() const {
  const auto known = std::find_if(fonts_.begin(), fonts_.end(),
                                  [&](const auto& entry) { return entry.first == Font; });
  if (known != fonts_.end()) {
    SelectObject(dc_.get(), known->second.get());
    return;
  }
  if (fonts_.size() == kMostFonts) {
    SelectObject(dc_.get(), stockFont_);
    fonts_.clear();
  }
  FontHandle made = makeFont(dc_.get(), Font);
  if (!made) return;
  SelectObject(dc_.get(), made.get());
  fonts_.emplace_back(Font, std::move(made));
}

}  // namespace platform
