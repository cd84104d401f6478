#include "activex/dialogs/dialogTemplate.h"

#include <cstdlib>
#include <cstring>
#include <span>
#include <string_view>

#include "activex/module.h"
#include "platform/gdi/handles.h"

namespace activex {
namespace {

// The head of an extended template is a row of 16-bit words up to the first control, which begins
// at a multiple of 4 bytes:
//   version, signature, help (2), extended style (2), style (2), number of controls, x, y, width,
//   height, menu, window class, title, and with a font its size, weight, italic with character
//   set, and face.
constexpr std::size_t kWidth = 11, kHeight = 12, kMenu = 13;
constexpr WORD kOrdinalFollows = 0xFFFF;

std::size_t afterText(std::span<const WORD> words, std::size_t at) {
  while (words[at] != 0) ++at;
  return at + 1;
}

std::size_t afterTextOrOrdinal(std::span<const WORD> words, std::size_t at) {
  return words[at] == kOrdinalFollows ? at + 2 : afterText(words, at);
}

std::size_t toControl(std::size_t at) { return at + at % 2; }

struct MessageFont {
  WORD points = 0, weight = 0, italicAndCharset = 0;
  std::wstring_view face;
};

bool messageFont(NONCLIENTMETRICSW& metrics, MessageFont& font) {
  metrics.cbSize = sizeof metrics;
  if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) return false;
  const LOGFONTW& message = metrics.lfMessageFont;
  const HDC screen = GetDC(nullptr);
  const int perInch = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  font.points = static_cast<WORD>(MulDiv(std::abs(message.lfHeight), 72, perInch));
  font.weight = static_cast<WORD>(message.lfWeight);
  font.italicAndCharset =
      static_cast<WORD>((message.lfItalic != 0 ? 1 : 0) | message.lfCharSet << 8);
  font.face = message.lfFaceName;
  return font.points > 0 && !font.face.empty();
}

// The pixels of a dialog unit's four across, as the dialog manager has them of a font.
int baseWidth(const MessageFont& font) {
  constexpr std::wstring_view kLetters = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  const HDC screen = GetDC(nullptr);
  LOGFONTW wanted = {};
  wanted.lfHeight = -MulDiv(font.points, GetDeviceCaps(screen, LOGPIXELSY), 72);
  wanted.lfWeight = font.weight;
  wanted.lfItalic = (font.italicAndCharset & 1) != 0;
  wanted.lfCharSet = static_cast<BYTE>(font.italicAndCharset >> 8);
  font.face.copy(std::data(wanted.lfFaceName), LF_FACESIZE - 1);
  const platform::FontHandle made(CreateFontIndirectW(&wanted));
  SIZE extent = {};
  {
    const platform::Selected selected(screen, made.get());
    GetTextExtentPoint32W(screen, kLetters.data(), static_cast<int>(kLetters.size()), &extent);
  }
  ReleaseDC(nullptr, screen);
  return (extent.cx / 26 + 1) / 2;
}

// Some room for the window's frame is left.
void fitWidth(MessageFont& font, int units) {
  constexpr WORD kLeastPoints = 6;
  RECT area = {};
  if (!SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0)) return;
  const int room = area.right - area.left - 4 * GetSystemMetrics(SM_CXFRAME);
  while (font.points > kLeastPoints && MulDiv(units, baseWidth(font), 4) > room) --font.points;
}

std::span<const WORD> wordsOf(int id) {
  const HINSTANCE module = moduleHandle();
  const HRSRC place = FindResourceW(module, MAKEINTRESOURCEW(id), RT_DIALOG);
  const HGLOBAL loaded = place != nullptr ? LoadResource(module, place) : nullptr;
  const void* const bytes = loaded != nullptr ? LockResource(loaded) : nullptr;
  if (bytes == nullptr) return {};
  const std::size_t size = SizeofResource(module, place) / sizeof(WORD);
  return {static_cast<const WORD*>(bytes), size};
}

}  // namespace

SIZE dialogUnits(int id) {
  const std::span<const WORD> words = wordsOf(id);
  if (words.empty()) return {};
  return {words[kWidth], words[kHeight]};
}

std::vector<DWORD> dialogTemplate(int id) {
  const std::span<const WORD> words = wordsOf(id);
  if (words.empty()) return {};
  std::vector<WORD> made;
  NONCLIENTMETRICSW metrics = {};
  if (MessageFont font; messageFont(metrics, font)) {
    fitWidth(font, words[kWidth]);
    const std::size_t fontAt =
        afterText(words, afterTextOrOrdinal(words, afterTextOrOrdinal(words, kMenu)));
    made.assign(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(fontAt));
    made.insert(made.end(), {font.points, font.weight, font.italicAndCharset});
    made.insert(made.end(), font.face.begin(), font.face.end());
    made.push_back(0);
    made.resize(toControl(made.size()));
    const std::size_t controls = toControl(afterText(words, fontAt + 3));
    made.insert(made.end(), words.begin() + static_cast<std::ptrdiff_t>(controls), words.end());
  } else {
    made.assign(words.begin(), words.end());
  }
  std::vector<DWORD> result(made.size() / 2 + 1);
  std::memcpy(result.data(), made.data(), made.size() * sizeof(WORD));
  return result;
}

}  // namespace activex
