#pragma once

#include <string>

namespace ModColor {

// The text of an XML document as UTF-8 without a byte order mark and with lines that end in "\n"
// alone, from the bytes of its file: UTF-8, UTF-16 or UTF-32, told by a byte order mark or by the
// first character, US-ASCII or ISO-8859-1 where it declares so. KewMalformed for any other
// encoding, for a declaration of another encoding than it is in, and for bytes that are no text.
std::string kewText(std::string bytes);

}  // namespace ModColor
