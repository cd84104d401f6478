#include "colorkey/kewSyntax.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "colorkey/xmlCharacters.h"
#include "util/ocxStrings.h"

namespace ModColor {
namespace {

using namespace std::string_view_literals;

// The number of a character reference; 0, which is no character, for any other text.
uint32_t codeOf(std::string_view digits) {
  const bool hexadecimal = digits.starts_with('x');
  if (hexadecimal) digits.remove_prefix(1);
  uint32_t code = 0;
  for (const char letter : digits) {
    const std::size_t digit = "0123456789abcdefABCDEF"sv.find(letter);
    if (digit == std::string_view::npos || (digit >= 10 && !hexadecimal)) return 0;
    const auto value = static_cast<uint32_t>(digit < 16 ? digit : digit - 6);
    code = code * (hexadecimal ? 16 : 10) + value;
    if (code >= 0x110000) return 0;
  }
  return code;
}

// Goes through a document once; at_ is always where the next part begins.
class Grammar {
 public:
  explicit Grammar(std::string_view text) : text_(text) {}

  void checkDocument() {
    if (isAt("<?xml") && text_.size() > 5 && isXmlWhite(text_[5])) takeDeclaration();
    takeMisc();
    if (isAt("<!DOCTYPE")) malformed("it has a document type, which is not read");
    if (!isAt("<")) malformed("something else than the document element");
    takeStartTag();
    while (!open_.empty()) takeContent();
    takeMisc();
    if (at_ < text_.size()) malformed("something behind the document element");
  }

 private:
  bool isAt(std::string_view what) const { return text_.substr(at_).starts_with(what); }

  void take(std::string_view what) {
    if (!isAt(what)) malformed("no \"" + std::string(what) + "\" where it should be");
    at_ += what.size();
  }

  bool takeWhite() {
    const std::size_t from = at_;
    while (at_ < text_.size() && isXmlWhite(text_[at_])) ++at_;
    return at_ > from;
  }

  // What stands before the end, which is taken too.
  std::string_view takeUpTo(std::string_view end) {
    const std::size_t from = at_;
    const std::size_t found = text_.find(end, from);
    if (found == std::string_view::npos)
      malformed("no \"" + std::string(end) + "\" before the end");
    at_ = found + end.size();
    return text_.substr(from, found - from);
  }

  std::string_view takeName() {
    const std::size_t from = at_;
    std::size_t length = 0;
    for (; at_ < text_.size(); at_ += length) {
      const uint32_t code = utf8At(text_, at_, length);
      if (!(at_ == from ? isXmlNameStart(code) : isXmlNameCharacter(code))) break;
    }
    if (at_ == from) malformed("no name where it should be");
    return text_.substr(from, at_ - from);
  }

  void takeEqualSign() {
    takeWhite();
    take("=");
    takeWhite();
  }

  // An attribute's value with the references in it.
  std::string_view takeValue() {
    const char quote = at_ < text_.size() ? text_[at_] : ' ';
    if (quote != '"' && quote != '\'') malformed("an attribute's value without quotes");
    const std::size_t from = ++at_;
    for (;;) {
      while (at_ < text_.size() && text_[at_] != quote && text_[at_] != '<' && text_[at_] != '&') {
        ++at_;
      }
      if (at_ == text_.size()) malformed("an attribute's value that does not end");
      if (text_[at_] == '<') malformed("a \"<\" in an attribute's value");
      if (text_[at_] == quote) return text_.substr(from, at_++ - from);
      takeReference();
    }
  }

  void takeReference() {
    constexpr std::size_t kLongest = 64;  // zeros may lead the number of a character
    const std::size_t length = text_.substr(at_, kLongest).find(';');
    if (length == std::string_view::npos) malformed("an \"&\" that is no reference");
    const std::string_view name = text_.substr(at_ + 1, length - 1);
    constexpr std::array kNames = {"lt"sv, "gt"sv, "amp"sv, "quot"sv, "apos"sv};
    const bool known = name.starts_with('#') ? isXmlCharacter(codeOf(name.substr(1)))
                                             : std::ranges::find(kNames, name) != kNames.end();
    if (!known) malformed("a reference to nothing");
    at_ += length + 1;
  }

  // Version, encoding and standalone, in this order; only the version must be there.
  void takeDeclaration() {
    take("<?xml");
    constexpr std::array kParts = {"version"sv, "encoding"sv, "standalone"sv};
    std::size_t next = 0;
    while (takeWhite() && !isAt("?>")) {
      const std::string_view name = takeName();
      while (next < kParts.size() && name != kParts[next] && next > 0) ++next;
      if (next == kParts.size() || name != kParts[next]) malformed("a declaration out of order");
      takeEqualSign();
      if (!isDeclarable(next++, takeValue())) malformed("a declaration of nothing known");
    }
    if (next == 0) malformed("a declaration without a version");
    take("?>");
  }

  static bool isDeclarable(std::size_t part, std::string_view value) {
    if (part == 2) return value == "yes" || value == "no";
    if (part == 1) return !value.empty();  // kewText knows the encodings
    return value.starts_with("1.") && value.size() > 2 &&
           value.find_first_not_of("0123456789", 2) == std::string_view::npos;
  }

  // Comments, instructions and white space around the document element.
  void takeMisc() {
    for (;;) {
      takeWhite();
      if (isAt("<!--")) {
        takeComment();
      } else if (isAt("<?")) {
        takeInstruction();
      } else {
        return;
      }
    }
  }

  void takeComment() {
    take("<!--");
    takeUpTo("--");
    if (!isAt(">")) malformed("a \"--\" in a comment");
    take(">");
  }

  void takeInstruction() {
    take("<?");
    const std::string_view target = takeName();
    if (ocxStrings::equalNoCase(target, "xml")) malformed("a declaration out of place");
    if (!takeWhite() && !isAt("?>")) malformed("an instruction whose name does not end");
    takeUpTo("?>");
  }

  void takeStartTag() {
    take("<");
    open_.push_back(takeName());
    if (open_.size() > kDeepestElement) {
      throw std::runtime_error("The file's elements are nested too deeply");
    }
    attributes_.clear();
    while (takeWhite() && !isAt(">") && !isAt("/>")) {
      attributes_.push_back(takeName());
      takeEqualSign();
      takeValue();
    }
    checkAttributes();
    if (isAt("/>")) {
      at_ += 2;
      open_.pop_back();
    } else {
      take(">");
    }
  }

  void checkAttributes() {
    std::ranges::sort(attributes_);
    if (std::ranges::adjacent_find(attributes_) != attributes_.end()) {
      malformed("an attribute that is there twice");
    }
  }

  void takeEndTag() {
    take("</");
    if (takeName() != open_.back()) malformed("an end of another element");
    takeWhite();
    take(">");
    open_.pop_back();
  }

  // Text up to the next markup within an element, and that.
  void takeContent() {
    while (at_ < text_.size() && text_[at_] != '<' && text_[at_] != '&' && text_[at_] != ']') ++at_;
    if (at_ == text_.size()) malformed("an element that does not end");
    if (text_[at_] == '&') {
      takeReference();
    } else if (text_[at_] == ']') {
      if (isAt("]]>")) malformed("a \"]]>\" in a text");
      ++at_;
    } else if (isAt("</")) {
      takeEndTag();
    } else if (isAt("<!--")) {
      takeComment();
    } else if (isAt("<![CDATA[")) {
      take("<![CDATA[");
      takeUpTo("]]>");
    } else if (isAt("<?")) {
      takeInstruction();
    } else {
      takeStartTag();
    }
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::vector<std::string_view> open_;        // the elements around at_
  std::vector<std::string_view> attributes_;  // of one tag
};

}  // namespace

void checkKewSyntax(std::string_view text) { Grammar(text).checkDocument(); }

}  // namespace ModColor
