#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace ModColor {

// The document is no well-formed XML, or not to be had at all.
class KewMalformed : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Elements within elements beyond this are refused: nothing of ours nests deeper than four.
inline constexpr int kDeepestElement = 256;

// The text of an XML document as UTF-8 without a byte order mark, from the bytes of its file:
// UTF-8, UTF-16 or UTF-32, told by a byte order mark or by the first character, US-ASCII or
// ISO-8859-1 where it declares so. KewMalformed for any other encoding and for bytes that are no
// text in it.
std::string kewText(std::string bytes);

// Looks at what the XML parser is too kind to notice, which a rewriting of the document would
// lose or change: stray "&" and undefined entities, "<" in attribute values, document types
// (entities are never expanded), nesting beyond kDeepestElement. KewMalformed names the first.
void checkKewText(std::string_view text);

}  // namespace ModColor
