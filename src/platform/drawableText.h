#pragma once

#include <string>
#include <string_view>

namespace platform {

// One line of text that every surface draws alike: UTF-8 without control characters (a blank
// stands for each), with U+FFFD for every byte or character that is no text, and cut after 8192
// characters, since the texts of a data set have no limit. Cairo stops drawing on a surface for
// good after one text that it refuses.
std::string drawableText(std::string_view text);

}  // namespace platform
