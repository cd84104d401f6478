#include "model/pathText.h"

#include <algorithm>
#include <optional>

#include "model/degrees.h"

namespace form {
namespace {

using Fields = std::vector<std::wstring_view>;

Fields split(std::wstring_view text, std::wstring_view separators) {
  Fields fields;
  while (true) {
    const std::size_t end = std::min(text.find_first_of(separators), text.size());
    fields.push_back(trimmed(text.substr(0, end)));
    if (end == text.size()) return fields;
    text.remove_prefix(end + 1);
  }
}

// A comma may stand between the numbers or within them: one is between, three have the second
// between.
Fields splitAtComma(std::wstring_view text) {
  const auto commas = std::count(text.begin(), text.end(), L',');
  if (commas != 1 && commas != 3) return {text};
  std::size_t middle = text.find(L',');
  if (commas == 3) middle = text.find(L',', middle + 1);
  return {text.substr(0, middle), text.substr(middle + 1)};
}

Fields fieldsOf(std::wstring_view line) {
  if (line.find_first_of(L"\t;") != std::wstring_view::npos) {
    Fields fields = split(line, L"\t;");
    std::erase(fields, std::wstring_view());
    return fields;
  }
  Fields words = split(line, L" ");
  std::erase_if(words, [](std::wstring_view word) { return word.empty() || word == L","; });
  if (words.size() == 1) return splitAtComma(words[0]);
  if (words.size() == 2 && words[0].ends_with(L',')) words[0].remove_suffix(1);
  return words;
}

std::optional<PathPoint> pointOf(std::wstring_view line) {
  const Fields fields = fieldsOf(line);
  if (fields.size() != 2) return std::nullopt;
  const auto longitude = readDegrees(fields[0]), latitude = readDegrees(fields[1]);
  if (!longitude || !latitude) return std::nullopt;
  return PathPoint{*longitude, *latitude};
}

bool isRemark(std::wstring_view line) {
  return line.starts_with(L'#') || line.find_first_of(L"0123456789") == std::wstring_view::npos;
}

}  // namespace

ReadPath readPath(std::wstring_view text) {
  constexpr std::size_t kShown = 40;  // letters of a wrong line
  ReadPath read;
  std::size_t number = 0;
  for (const std::wstring_view line : split(text, L"\n")) {
    ++number;
    if (isRemark(line)) continue;
    const std::optional<PathPoint> point = pointOf(line);
    if (!point) {
      read.problem = L"Line " + std::to_wstring(number) + L" is not a longitude and a latitude: " +
                     std::wstring(line.substr(0, kShown)) + (line.size() > kShown ? L"..." : L"");
      return read;
    }
    read.points.push_back(*point);
  }
  return read;
}

std::wstring writePath(const Path& path, std::wstring_view lineEnd) {
  std::wstring text;
  for (const auto& [longitude, latitude] : path) {
    text += writeDegrees(longitude) + L'\t' + writeDegrees(latitude);
    text += lineEnd;
  }
  return text;
}

}  // namespace form
