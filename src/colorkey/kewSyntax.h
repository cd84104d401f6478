#pragma once

#include <string_view>

namespace ModColor {

// Elements within elements beyond this are refused: nothing of ours nests deeper than four.
inline constexpr int kDeepestElement = 64;

// Holds a document's text (from kewText) against the whole grammar of well-formed XML 1.0. The
// parser is kinder, and what it does not notice a rewriting of the document would lose or change.
// Document types are refused too: no entity is ever expanded, nothing external ever read.
// KewMalformed says what is wrong; std::runtime_error when elements are nested too deeply.
void checkKewSyntax(std::string_view text);

}  // namespace ModColor
