#include "dialogs/dialogFont.h"

#include <cstring>
#include <span>
#include <string_view>

#include "window/Metrics.h"

namespace form {
namespace {

// An extended template, in 16-bit words: 13 of numbers, then menu, window class and title, each a
// text or a mark with a number, then the font: size, weight, italic with character set, and face.
// The controls begin at a multiple of two words.
constexpr std::size_t kAfterNumbers = 13;
constexpr WORD kNumberFollows = 0xFFFF;

using Words = std::span<const WORD>;

Words wordsOf(int id) {
  const HRSRC place = FindResourceW(nullptr, MAKEINTRESOURCEW(id), RT_DIALOG);
  const HGLOBAL loaded = place != nullptr ? LoadResource(nullptr, place) : nullptr;
  const void* const bytes = loaded != nullptr ? LockResource(loaded) : nullptr;
  if (bytes == nullptr) return {};
  return {static_cast<const WORD*>(bytes), SizeofResource(nullptr, place) / sizeof(WORD)};
}

std::size_t afterText(Words words, std::size_t at) {
  while (words[at] != 0) ++at;
  return at + 1;
}

std::size_t afterTextOrNumber(Words words, std::size_t at) {
  return words[at] == kNumberFollows ? at + 2 : afterText(words, at);
}

}  // namespace

std::vector<DWORD> templateInMessageFont(int id) {
  const Words words = wordsOf(id);
  if (words.empty()) return {};
  std::size_t font = kAfterNumbers;
  for (int k = 0; k < 2; ++k) font = afterTextOrNumber(words, font);
  font = afterText(words, font);
  const std::size_t end = afterText(words, font + 3), controls = end + end % 2;

  const LOGFONTW message = messageFont();
  const std::wstring_view face = message.lfFaceName;
  std::vector<WORD> made(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(font));
  made.push_back(static_cast<WORD>(pointsOf(message)));
  made.push_back(static_cast<WORD>(message.lfWeight));
  made.push_back(static_cast<WORD>((message.lfItalic != 0 ? 1 : 0) | message.lfCharSet << 8));
  made.insert(made.end(), face.begin(), face.end());
  made.push_back(0);
  made.resize(made.size() + made.size() % 2);
  made.insert(made.end(), words.begin() + static_cast<std::ptrdiff_t>(controls), words.end());

  std::vector<DWORD> result(made.size() / 2 + 1);
  std::memcpy(result.data(), made.data(), made.size() * sizeof(WORD));
  return result;
}

}  // namespace form
