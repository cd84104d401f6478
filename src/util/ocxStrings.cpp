#include "util/ocxStrings.h"

#include <algorithm>
#include <limits>

#include "util/RuntimeError.h"
#include "util/numberText.h"
#include "util/rounding.h"

namespace ocxStrings {
namespace {

char upperLetter(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

char separatorOf(std::string_view text) {
  if (text.find('\t') != std::string_view::npos) return '\t';
  if (text.find(';') != std::string_view::npos) return ';';
  if (text.find(',') != std::string_view::npos) return ',';
  return ' ';
}

int16_t split(std::string_view text, char separator, int32_t wanted, int32_t& start, int32_t& end) {
  // Positions are 32-bit and one past the end must still be one.
  if (text.size() >= static_cast<std::size_t>(std::numeric_limits<int32_t>::max())) {
    util::raise(util::kOverflow);
  }
  if (wanted < 1) return 0;
  std::size_t position = end < 0 ? 0 : static_cast<std::size_t>(end);  // counted from 0
  int32_t found = 0;
  while (position < text.size()) {
    const std::size_t stop = std::min(text.find(separator, position), text.size());
    if (stop > position) {
      start = static_cast<int32_t>(position) + 1;
      end = static_cast<int32_t>(stop);
      if (++found == wanted) return util::roundToInteger(found);
    }
    position = stop + 1;
  }
  return 0;
}

std::string_view cut(std::string_view text, int32_t start, int32_t end) {
  return text.substr(static_cast<std::size_t>(start - 1),
                     static_cast<std::size_t>(end - start + 1));
}

}  // namespace

std::string trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string() : rightTrim(text.substr(first));
}

std::string rightTrim(std::string_view text) {
  return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

std::string upper(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), upperLetter);
  return result;
}

bool equalNoCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return upperLetter(x) == upperLetter(y); });
}

bool hasPrefix(std::string_view text, std::string_view keyword) {
  return text.size() >= keyword.size() && upper(text.substr(0, keyword.size())) == keyword;
}

std::string StripExtension(std::string_view name) {
  const std::string whole = trim(name);
  const std::size_t dot = whole.rfind('.');
  return dot == std::string::npos ? whole : rightTrim(std::string_view(whole).substr(0, dot));
}

void ChangeExtension(std::string& name, std::string_view extension) {
  name = StripExtension(name) + "." + trim(extension);
}

std::string FileNameOf(std::string_view name) {
  const std::string whole = trim(name);
  const std::size_t slash = whole.find_last_of("\\/");
  return slash == std::string::npos ? whole : whole.substr(slash + 1);
}

int16_t NextField(std::string_view text, int32_t wanted, int32_t& start, int32_t& end) {
  return split(text, separatorOf(text), wanted, start, end);
}

int16_t NextBlankField(std::string_view text, int32_t wanted, int32_t& start, int32_t& end) {
  return split(text, ' ', wanted, start, end);
}

std::string FieldText(std::string_view text, int32_t number) {
  int32_t start = 0;
  int32_t end = 0;
  if (NextField(text, number, start, end) == 0) return {};
  return std::string(cut(text, start, end));
}

double NextNumber(std::string_view text, int32_t& position) {
  int32_t start = 0;
  if (NextBlankField(text, 1, start, position) == 0) return 0.0;
  return util::leadingNumber(cut(text, start, position));
}

}  // namespace ocxStrings
