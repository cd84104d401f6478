#include "model/pictureSize.h"

#include <cmath>

#include "model/degrees.h"

namespace form {
namespace {

// Smaller ones have no room for axes; larger ones no room in a 32-bit program.
constexpr int kLeast = 50, kGreatest = 10000;
constexpr long long kMostPixels = 30'000'000;

std::optional<int> readPixels(const std::wstring& text) {
  const std::wstring_view digits = trimmed(text);
  if (digits.empty() || digits.size() > 6) return std::nullopt;
  int value = 0;
  for (const wchar_t digit : digits) {
    if (digit < L'0' || digit > L'9') return std::nullopt;
    value = 10 * value + (digit - L'0');
  }
  return value >= kLeast && value <= kGreatest ? std::optional(value) : std::nullopt;
}

std::wstring mustBe(const wchar_t* what) {
  return std::wstring(L"The ") + what + L" must be a whole number from " +
         std::to_wstring(kLeast) + L" to " + std::to_wstring(kGreatest) + L".";
}

}  // namespace

std::optional<PictureSize> readPictureSize(const std::wstring& width, const std::wstring& height,
                                           std::wstring& problem) {
  const std::optional<int> across = readPixels(width), down = readPixels(height);
  problem.clear();
  if (!across) {
    problem = mustBe(L"width");
  } else if (!down) {
    problem = mustBe(L"height");
  } else if (static_cast<long long>(*across) * *down > kMostPixels) {
    problem = L"A picture can have 30 million pixels at most.";
  }
  if (!problem.empty()) return std::nullopt;
  return PictureSize{*across, *down};
}

Place fitOnPage(const PictureSize& page, const PictureSize& picture) {
  if (page.width <= 0 || page.height <= 0 || picture.width <= 0 || picture.height <= 0) return {};
  const double scale = std::fmin(static_cast<double>(page.width) / picture.width,
                                 static_cast<double>(page.height) / picture.height);
  const int width = static_cast<int>(std::lround(picture.width * scale));
  const int height = static_cast<int>(std::lround(picture.height * scale));
  return {(page.width - width) / 2, (page.height - height) / 2, width, height};
}

}  // namespace form
