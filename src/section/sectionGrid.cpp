#include "section/sectionValues.h"
#include "util/RuntimeError.h"
#include "util/rounding.h"

namespace KelvaneMain {

SectionGrid section_values;

void SectionGrid::size(int32_t ncols, int32_t nlevels) {
  if (ncols < 1 || nlevels < 1) util::raise(util::kSubscript);
  const int32_t wanted = util::multiplyLong(ncols, nlevels);
  if (wanted > kMostSectionValues) util::raise(util::kOutOfMemory);
  const auto count = static_cast<std::size_t>(wanted);
  std::vector<float> values(count, 0.0F);
  std::vector<int16_t> marks(count, int16_t{0});
  values_.swap(values);
  marks_.swap(marks);
  ncols_ = ncols;
  nlevels_ = nlevels;
}

void SectionGrid::store(int32_t c, int32_t k, float value) {
  const std::size_t at = place(c, k);
  values_[at] = value;
  marks_[at] = isValue(value) ? 1 : 0;
}

double SectionGrid::depth(int32_t k) const {
  if (k < 1 || static_cast<std::size_t>(k) >= depths.size()) util::raise(util::kSubscript);
  return depths[static_cast<std::size_t>(k)];
}

std::size_t SectionGrid::place(int32_t c, int32_t k) const {
  if (c < 1 || c > ncols_ || k < 1 || k > nlevels_) util::raise(util::kSubscript);
  return static_cast<std::size_t>(c - 1) * static_cast<std::size_t>(nlevels_) +
         static_cast<std::size_t>(k - 1);
}

}  // namespace KelvaneMain
