#include "optionText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "util/ocxStrings.h"

namespace cli {
namespace {

// Walks through a text from its start.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : rest_(text) {}

  bool atEnd() const { return rest_.empty(); }

  // True when at least one blank was passed.
  bool passBlanks() {
    const std::size_t blanks = std::min(rest_.find_first_not_of(" \t\n"), rest_.size());
    rest_.remove_prefix(blanks);
    return blanks > 0;
  }

  bool pass(char wanted) {
    if (rest_.empty() || rest_.front() != wanted) return false;
    rest_.remove_prefix(1);
    return true;
  }

  template <class Number>
  std::optional<Number> number() {
    std::string_view digits = rest_;
    if (digits.size() > 1 && digits[0] == '+' && digits[1] != '-') digits.remove_prefix(1);
    Number value{};
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc()) return std::nullopt;
    rest_ = digits.substr(static_cast<std::size_t>(end - digits.data()));
    return value;
  }

 private:
  std::string_view rest_;
};

std::optional<float> readDegrees(Scanner& scanner) {
  const std::optional<float> value = scanner.number<float>();
  return value && std::isfinite(*value) ? value : std::nullopt;
}

}  // namespace

std::optional<std::vector<PathPoint>> readPath(std::string_view text) {
  std::vector<PathPoint> points;
  Scanner scanner(text);
  scanner.passBlanks();
  while (!scanner.atEnd()) {
    const std::optional<float> lon = readDegrees(scanner);
    scanner.passBlanks();
    if (!lon || !scanner.pass(',')) return std::nullopt;
    scanner.passBlanks();
    const std::optional<float> lat = readDegrees(scanner);
    if (!lat || (!scanner.passBlanks() && !scanner.atEnd())) return std::nullopt;
    points.push_back({*lon, *lat});
  }
  if (points.size() < 2) return std::nullopt;
  return points;
}

std::optional<PictureSize> readSize(std::string_view text) {
  Scanner scanner(text);
  const std::optional<int32_t> width = scanner.number<int32_t>();
  if (!width || !(scanner.pass('x') || scanner.pass('X'))) return std::nullopt;
  const std::optional<int32_t> height = scanner.number<int32_t>();
  if (!height || !scanner.atEnd()) return std::nullopt;
  if (*width < 1 || *height < 1 || *width > kSideLimit || *height > kSideLimit) {
    return std::nullopt;
  }
  return PictureSize{*width, *height};
}

std::optional<int32_t> readStep(std::string_view text) {
  Scanner scanner(text);
  const std::optional<int32_t> step = scanner.number<int32_t>();
  if (!step || !scanner.atEnd() || *step < 1) return std::nullopt;
  return step;
}

std::optional<StepRange> readSteps(std::string_view text) {
  const std::size_t colon = text.find(':');
  const bool alone = colon == std::string_view::npos;
  const std::string_view from = text.substr(0, colon);
  const std::string_view to = alone ? from : text.substr(colon + 1);
  const std::optional<int32_t> first = readStep(from), last = readStep(to);
  if ((!first && !from.empty()) || (!last && !to.empty()) || (!first && !last)) {
    return std::nullopt;
  }
  const StepRange steps{first.value_or(1), last};
  if (last && *last < steps.first) return std::nullopt;
  return steps;
}

std::optional<PictureFormat> formatOf(std::string_view fileName) {
  const std::size_t dot = fileName.rfind('.');
  if (dot == std::string_view::npos || dot == 0 || fileName[dot - 1] == '/') return std::nullopt;
  const std::string extension = ocxStrings::upper(fileName.substr(dot + 1));
  if (extension == "PNG") return PictureFormat::Png;
  if (extension == "SVG") return PictureFormat::Svg;
  if (extension == "PDF") return PictureFormat::Pdf;
  return std::nullopt;
}

bool isPossible(PictureSize size, PictureFormat format) {
  return format != PictureFormat::Png || size.width <= kPixelLimit / size.height;
}

}  // namespace cli
