#include <algorithm>
#include <cmath>

#include "netcdf/ncf.h"
#include "section/sectionPath.h"
#include "util/lastError.h"
#include "util/ocxMinmax.h"
#include "util/rounding.h"

namespace KelvaneMain {

using ocxNetNc::ncf;

namespace {

// One coordinate of the samples along a segment: sample t (from 1) lies at
// start + step x (t - 1), step never being negative.
struct SampledAxis {
  double start, step;      // of the segment
  double origin, spacing;  // of the grid, spacing > 0
  int32_t count;           // of grid points

  // Grid index of a sample, not limited to the grid. Sums, products and quotients round
  // monotonically, so the index never falls as t grows.
  double index(int64_t t) const {
    const double place = start + step * static_cast<double>(t - 1);
    return std::trunc((place - origin) / spacing) + 1;
  }
};

// The first of samples 1..samples that isBefore no longer holds for; samples + 1 if it holds for
// all of them.
template <class Before>
int64_t firstSample(int64_t samples, Before isBefore) {
  int64_t low = 1, high = samples + 1;
  while (low < high) {
    const int64_t middle = low + (high - low) / 2;
    if (isBefore(middle)) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return low;
}

// The samples whose index lies in the grid are neighbours of each other; a long segment over a
// small grid has millions of samples on either side of them.
struct SampleRange {
  int64_t first, last;
};
SampleRange samplesInGrid(const SampledAxis& axis, int64_t samples) {
  const int64_t first = firstSample(samples, [&](int64_t t) { return !(axis.index(t) >= 1); });
  const double count = static_cast<double>(axis.count);
  const int64_t behind = firstSample(samples, [&](int64_t t) { return axis.index(t) <= count; });
  return {first, behind - 1};
}

void appendCell(Cell cell) {
  util::OneBased<Cell>& cells = section.column_cells;
  if (!cells.empty() && cells(cells.size()) == cell) return;
  section.ncols = util::addLong(section.ncols, 1);
  cells.push(cell);
}

double separation(float a, float b) {
  const double difference = static_cast<double>(b) - static_cast<double>(a);
  return static_cast<double>(util::storeSingle(std::fabs(difference)));
}

int32_t walkSegment(int32_t k) {
  const double dlon = static_cast<double>(ncf.dlon);
  const double dlat = static_cast<double>(ncf.dlat);
  // A grid of cells has no spacings; dlon and dlat are then those of an earlier data set.
  if (ncf.grid_order == 0 || dlon <= 0 || dlat <= 0) {
    util::LastError = "[Set_cell_Section] ncf.dlon <= 0 Or ncf.dlat <= 0";
    return -1;
  }
  const SectionPoint from = SectionPoints(k);
  const SectionPoint to = SectionPoints(static_cast<int64_t>(k) + 1);
  const double dx = separation(from.x, to.x);
  const double dy = separation(from.y, to.y);
  const int32_t n = ocxMinmax::MaxLong(util::roundToLong(dx / dlon), util::roundToLong(dy / dlat));
  if (n < 1) return 0;

  // Three samples a grid step. Their number can leave the 32-bit range although n does not.
  const int64_t samples = 3 * static_cast<int64_t>(n);
  const double divisor = static_cast<double>(samples);
  const SampledAxis x{static_cast<double>(from.x), dx / divisor,
                      static_cast<double>(ncf.lon_values(1)), dlon, ncf.nlon};
  const SampledAxis y{static_cast<double>(from.y), dy / divisor,
                      static_cast<double>(ncf.lat_values(1)), dlat, ncf.nlat};
  const SampleRange alongX = samplesInGrid(x, samples);
  const SampleRange alongY = samplesInGrid(y, samples);
  const int64_t last = std::min(alongX.last, alongY.last);
  for (int64_t t = std::max(alongX.first, alongY.first); t <= last; ++t) {
    appendCell({util::truncateToLong(x.index(t)), util::truncateToLong(y.index(t))});
  }
  return section.ncols;
}

}  // namespace

int32_t Set_cell_Section(int32_t k) {
  try {
    return walkSegment(k);
  } catch (...) {
    util::reportBracketed("Set_cell_Section");
    return -1;
  }
}

}  // namespace KelvaneMain
