#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace cli {

struct PathPoint {
  float lon = 0, lat = 0;
  bool operator==(const PathPoint&) const = default;
};

// Reads "lon,lat lon,lat ...", two points or more, each number finite as a single. Nothing when
// the text is anything else.
std::optional<std::vector<PathPoint>> readPath(std::string_view text);

// The widest and highest picture, and the most pixels that one of pixels may have in all.
inline constexpr int32_t kSideLimit = 32767;
inline constexpr int32_t kPixelLimit = 67108864;

struct PictureSize {
  int32_t width = 1000, height = 600;
  bool operator==(const PictureSize&) const = default;
};

// Reads "WIDTHxHEIGHT" in pixels. Nothing when the text is anything else or a side is beyond its
// limit.
std::optional<PictureSize> readSize(std::string_view text);

// Reads the number of a time step, 1 or more.
std::optional<int32_t> readStep(std::string_view text);

// Time steps from first to last, both included; without a last one up to the end.
struct StepRange {
  int32_t first = 1;
  std::optional<int32_t> last;
  bool operator==(const StepRange&) const = default;
};

// Reads "A:B", "A:", ":B" or "A" for that step alone, each 1 or more and B not below A.
std::optional<StepRange> readSteps(std::string_view text);

enum class PictureFormat { Png, Svg, Pdf };

// The format that the extension of a file name asks for, in small or capital letters.
std::optional<PictureFormat> formatOf(std::string_view fileName);

// Pictures of this format can have this size.
bool isPossible(PictureSize size, PictureFormat format);

}  // namespace cli
