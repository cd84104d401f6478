#pragma once

#include <optional>
#include <string>

namespace form {

struct PictureSize {
  int width = 0, height = 0;  // pixels, or whatever a page is measured in
  bool operator==(const PictureSize&) const = default;
};

// The size of a picture from the texts of its two boxes. Nothing when they are no size; the
// reason is then in problem, in a sentence, and else problem is empty.
std::optional<PictureSize> readPictureSize(const std::wstring& width, const std::wstring& height,
                                           std::wstring& problem);

struct Place {
  int left = 0, top = 0, width = 0, height = 0;
  bool operator==(const Place&) const = default;
};

// The largest place of the picture's proportions in the middle of a page. Empty for an empty
// page or picture.
Place fitOnPage(const PictureSize& page, const PictureSize& picture);

}  // namespace form
