#include "section/sectionValues.h"

#include <algorithm>

#include "util/RuntimeError.h"
#include "util/rounding.h"

namespace KelvaneMain {

SectionGrid section_values;

std::size_t SectionGrid::valuesOf(int32_t ncols, int32_t nlevels) {
  if (ncols < 1 || nlevels < 1) util::raise(util::kSubscript);
  const int32_t count = util::multiplyLong(ncols, nlevels);
  if (count > kMostSectionValues) util::raise(util::kOutOfMemory);
  return static_cast<std::size_t>(count);
}

void SectionGrid::size(int32_t ncols, int32_t nlevels) {
  beginStoring(ncols, nlevels);
  clearRest();
}

void SectionGrid::beginStoring(int32_t ncols, int32_t nlevels) {
  const std::size_t count = valuesOf(ncols, nlevels);
  std::vector<int32_t> filled(static_cast<std::size_t>(ncols), 0);
  if (count != values_.size()) {
    std::vector<float> values(count);
    std::vector<int16_t> marks(count);
    values_.swap(values);
    marks_.swap(marks);
  }
  filled_.swap(filled);
  deepest_.clear();
  ncols_ = ncols;
  nlevels_ = nlevels;
  stored_ = 0;
}

std::span<const float> SectionGrid::storedValues() const {
  const auto count = static_cast<std::size_t>(stored_) * static_cast<std::size_t>(nlevels_);
  return std::span(values_).first(count);
}

void SectionGrid::clearRest() {
  if (stored_ >= ncols_) return;
  const auto first = static_cast<std::ptrdiff_t>(storedValues().size());
  std::fill(values_.begin() + first, values_.end(), 0.0F);
  std::fill(marks_.begin() + first, marks_.end(), int16_t{0});
  std::fill(filled_.begin() + stored_, filled_.end(), 0);
  deepest_.clear();
  stored_ = ncols_;
}

void SectionGrid::store(int32_t c, int32_t k, float value) {
  const std::size_t at = place(c, k);
  const int16_t mark = isValue(value) ? 1 : 0;
  filled_[static_cast<std::size_t>(c - 1)] += mark - marks_[at];
  values_[at] = value;
  marks_[at] = mark;
  deepest_.clear();
}

void SectionGrid::markColumns(std::size_t first, std::size_t end) {
  const auto levels = static_cast<std::size_t>(nlevels_);
  deepest_.clear();
  for (std::size_t c = first; c < end; ++c) {
    const float* const values = values_.data() + c * levels;
    int16_t* const marks = marks_.data() + c * levels;
    int32_t filled = 0;
    for (std::size_t k = 0; k < levels; ++k) {
      marks[k] = isValue(values[k]) ? 1 : 0;
      filled += marks[k];
    }
    filled_[c] = filled;
  }
}

void SectionGrid::storeColumn(int32_t c, std::span<const float> column) {
  const std::size_t first = place(c, 1);
  if (column.size() != static_cast<std::size_t>(nlevels_)) util::raise(util::kSubscript);
  std::ranges::copy(column, values_.begin() + static_cast<std::ptrdiff_t>(first));
  markColumns(static_cast<std::size_t>(c - 1), static_cast<std::size_t>(c));
  if (c == stored_ + 1) stored_ = c;
}

void SectionGrid::storeLevels(std::span<const float> levels) {
  if (levels.size() != values_.size()) util::raise(util::kSubscript);
  // A handful of columns at a time: both sides stay in the processor's cache.
  constexpr std::size_t kTogether = 16;
  const auto columns = static_cast<std::size_t>(ncols_);
  const auto depth = static_cast<std::size_t>(nlevels_);
  for (std::size_t first = 0; first < columns; first += kTogether) {
    const std::size_t end = std::min(first + kTogether, columns);
    for (std::size_t k = 0; k < depth; ++k) {
      for (std::size_t c = first; c < end; ++c) values_[c * depth + k] = levels[k * columns + c];
    }
    markColumns(first, end);
  }
  stored_ = ncols_;
}

std::span<const int32_t> SectionGrid::deepestValues() const {
  if (!deepest_.empty() || empty()) return deepest_;
  std::vector<int32_t> deepest(static_cast<std::size_t>(ncols_), 0);
  const auto levels = static_cast<std::size_t>(nlevels_);
  for (std::size_t c = 0; c < deepest.size(); ++c) {
    std::size_t k = levels;
    while (k > 0 && marks_[c * levels + k - 1] == 0) --k;
    deepest[c] = static_cast<int32_t>(k);
  }
  return deepest_ = std::move(deepest);
}

std::span<const float> SectionGrid::column(int32_t c) const {
  return std::span(values_).subspan(place(c, 1), static_cast<std::size_t>(nlevels_));
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
