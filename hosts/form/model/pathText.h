#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace form {

struct PathPoint {
  double longitude = 0, latitude = 0;
  bool operator==(const PathPoint&) const = default;
};

using Path = std::vector<PathPoint>;

struct ReadPath {
  Path points;
  std::wstring problem;  // what the first line that is no point is; empty when all are
};

// The points of a text, one a line: longitude and latitude in degrees, a tab, semicolon, comma or
// blanks between them. Lines without any digit, headings and blank ones, and lines that begin
// with # are passed over.
ReadPath readPath(std::wstring_view text);

// Lines of longitude, tab, latitude. Ends every line with lineEnd.
std::wstring writePath(const Path& path, std::wstring_view lineEnd = L"\r\n");

}  // namespace form
