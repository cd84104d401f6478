#pragma once

#include <string>
#include <string_view>

namespace platform {

// One line of text that Cairo accepts: UTF-8 without control characters (a blank stands for
// each) and with U+FFFD for every byte or character that is no text. Cairo stops drawing on a
// surface for good after one text that it refuses.
std::string drawableText(std::string_view text);

}  // namespace platform
