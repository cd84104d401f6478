#include "render/valueLabels.h"

#include "util/rounding.h"

namespace KelvaneMain {
namespace {

using util::asDouble;

// A label's extent along the axis.
struct Extent {
  double start = 0, end = 0;
};

std::vector<Extent> extentsOf(const platform::PictureBox& surface,
                              const std::vector<CentredLabel>& labels) {
  std::vector<Extent> extents;
  for (const CentredLabel& label : labels) {
    const double width = asDouble(surface.TextWidth(label.text));
    const double start = asDouble(label.x) - width / 2.0;
    extents.push_back({start, start + width});
  }
  return extents;
}

// The smallest stride at which neighbours are at least the gap apart.
std::size_t strideOf(const std::vector<Extent>& extents, double gap) {
  const auto fits = [&](std::size_t stride) {
    for (std::size_t i = stride; i < extents.size(); i += stride) {
      if (extents[i].start < extents[i - stride].end + gap) return false;
    }
    return true;
  };
  std::size_t stride = 1;
  while (!fits(stride)) ++stride;
  return stride;
}

}  // namespace

void ValueLabels::print(platform::PictureBox& surface, float y,
                        const std::vector<CentredLabel>& labels) {
  const double gap = asDouble(surface.TextWidth(" "));
  const std::vector<Extent> extents = extentsOf(surface, labels);
  const std::size_t stride = strideOf(extents, gap);
  for (std::size_t i = 0; i < labels.size(); i += stride) {
    const Extent& extent = extents[i];
    if (extent.start < 0.0 || extent.end > asDouble(surface.ScaleWidth())) continue;
    if (any_ && extent.start < end_ + gap) continue;
    surface.PrintAt(extent.start, asDouble(y), labels[i].text);
    any_ = true;
    end_ = extent.end;
  }
}

}  // namespace KelvaneMain
