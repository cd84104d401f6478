// The field splitter and the pieces of file names, held against plain definitions of what they do.

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "platform/drawableText.h"
#include "platform/texts.h"
#include "targets/support/Input.h"
#include "targets/support/must.h"
#include "util/numberText.h"
#include "util/ocxStrings.h"

using namespace ocxStrings;

namespace {

char separatorOf(const std::string& text) {
  for (const char one : {'\t', ';', ','}) {
    if (text.find(one) != std::string::npos) return one;
  }
  return ' ';
}

std::vector<std::string> fieldsOf(const std::string& text, char separator) {
  std::vector<std::string> found;
  std::string field;
  for (const char letter : text + separator) {
    if (letter != separator) {
      field += letter;
    } else if (!field.empty()) {
      found.push_back(std::move(field));
      field.clear();
    }
  }
  return found;
}

void fields(const std::string& text, int32_t wanted, int32_t from) {
  const std::vector<std::string> all = fieldsOf(text, separatorOf(text));
  const bool there = wanted >= 1 && static_cast<std::size_t>(wanted) <= all.size();
  MUST(FieldText(text, wanted) == (there ? all[static_cast<std::size_t>(wanted - 1)] : ""));

  // One by one they are the same, and the end is reached in the end.
  int32_t start = 0, end = 0;
  for (const std::string& field : all) {
    MUST(NextField(text, 1, start, end) == 1);
    MUST(text.substr(static_cast<std::size_t>(start - 1),
                     static_cast<std::size_t>(end - start + 1)) == field);
  }
  MUST(NextField(text, 1, start, end) == 0);

  // From any place, also one outside of the text.
  start = 0, end = from;
  const int16_t found = NextField(text, wanted, start, end);
  MUST(found == 0 || found == wanted);
  if (found != 0) MUST(start >= 1 && start <= end && end <= static_cast<int32_t>(text.size()));

  int32_t position = 0;
  for (const std::string& field : fieldsOf(text, ' ')) {
    const double number = NextNumber(text, position);
    MUST(number == util::leadingNumber(field));
  }
  MUST(NextNumber(text, position) == 0);
}

void names(const std::string& name, const std::string& extension) {
  std::string changed = name;
  ChangeExtension(changed, extension);
  MUST(changed.ends_with("." + trim(extension)));
  MUST(changed.size() <= name.size() + extension.size() + 1);
  if (extension.find('.') == std::string::npos && !trim(extension).empty()) {
    std::string again = changed;
    ChangeExtension(again, extension);
    MUST(again == changed);
  }
  const std::string file = FileNameOf(name);
  MUST(file.find_first_of("\\/") == std::string::npos && FileNameOf(file) == trim(file));
  MUST(trim(trim(name)) == trim(name) && rightTrim(trim(name)) == trim(name));
  MUST(upper(upper(name)) == upper(name) && equalNoCase(name, upper(name)));
  MUST(hasPrefix(name + extension, upper(name)));
  MUST(!hasPrefix(name, upper(name) + "X"));
}

void characters(const std::string& text) {
  const std::string drawn = platform::drawableText(text);
  MUST(platform::drawableText(drawn) == drawn);
  const std::string utf8 = platform::textToUtf8(text);
  MUST(platform::textToUtf8(utf8) == utf8);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const int32_t wanted = input.integer();
  const int32_t from = input.integer();
  const std::string extension = input.text(16);
  const std::string text(input.rest());
  fields(text, wanted, from);
  names(text, extension);
  characters(text);
  return 0;
}
