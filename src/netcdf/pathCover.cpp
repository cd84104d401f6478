#include "netcdf/pathCover.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <queue>
#include <utility>

namespace NetCDF {
namespace {

constexpr double kMustBeCut = std::numeric_limits<double>::infinity();

void include(Box& box, Place place) {
  if (box.rows == 0) {
    box = {place.row, place.column, 1, 1};
    return;
  }
  const std::size_t lastRow = std::max(box.row + box.rows - 1, place.row);
  const std::size_t lastColumn = std::max(box.column + box.columns - 1, place.column);
  box.row = std::min(box.row, place.row);
  box.column = std::min(box.column, place.column);
  box.rows = lastRow - box.row + 1;
  box.columns = lastColumn - box.column + 1;
}

// A stretch of the path and the best way to cut it in two.
struct Stretch {
  std::size_t first, count;
  Box box;
  std::size_t cut = 0;  // places before the cut
  double gain = 0;      // by the cut

  bool operator<(const Stretch& other) const { return gain < other.gain; }
};

class Cutter {
 public:
  Cutter(std::span<const Place> path, const ReadCost& cost, const CoverLimits& limits)
      : path_(path), cost_(cost), limits_(limits) {
    behind_.resize(path.size() + 1);
  }

  Stretch stretch(std::size_t first, std::size_t count) {
    Stretch made{first, count, {}};
    // What is left behind each cut.
    behind_[count] = {};
    for (std::size_t n = count; n-- > 0;) {
      behind_[n] = behind_[n + 1];
      include(behind_[n], path_[first + n]);
    }
    made.box = behind_[0];
    if (count > 1) findCut(made);
    return made;
  }

 private:
  void findCut(Stretch& made) {
    // Without a limit of their number, cuts near the ends would take away one place after the
    // other, each at the price of a look at all.
    const bool anywhere = limits_.mostBoxes != std::numeric_limits<std::size_t>::max();
    const std::size_t margin = anywhere ? 1 : std::max<std::size_t>(made.count / 8, 1);
    double best = std::numeric_limits<double>::infinity();
    Box before;
    for (std::size_t cut = 1; cut < made.count; ++cut) {
      include(before, path_[made.first + cut - 1]);
      if (cut < margin || cut > made.count - margin) continue;
      const double both = cost_(before) + cost_(behind_[cut]);
      const bool nearer = distance(cut, made.count) < distance(made.cut, made.count);
      if (both < best || (both == best && nearer)) {
        best = both;
        made.cut = cut;
      }
    }
    made.gain = made.box.cells() > limits_.mostCells ? kMustBeCut : cost_(made.box) - best;
  }
  // From the middle.
  static std::size_t distance(std::size_t cut, std::size_t count) {
    return cut * 2 > count ? cut * 2 - count : count - cut * 2;
  }

  std::span<const Place> path_;
  const ReadCost& cost_;
  const CoverLimits& limits_;
  std::vector<Box> behind_;
};

}  // namespace

double ReadCost::operator()(const Box& b) const {
  const auto high = static_cast<double>(b.rows);
  const double windows = std::min(high, std::ceil(high / rowsPerWindow) + 1);
  return box + windows * window + high * row + b.cells() * cell;
}

Cover coverPath(std::span<const Place> path, const ReadCost& cost, const CoverLimits& limits) {
  Cover cover;
  if (path.empty()) return cover;
  cover.order.resize(path.size());
  std::iota(cover.order.begin(), cover.order.end(), 0U);

  Cutter cutter(path, cost, limits);
  std::priority_queue<Stretch> open;
  open.push(cutter.stretch(0, path.size()));
  const auto keep = [&](const Stretch& whole) {
    cover.parts.push_back({whole.box, whole.first, whole.count});
  };
  while (!open.empty()) {
    const Stretch best = open.top();
    open.pop();
    const bool room = cover.parts.size() + open.size() + 1 < limits.mostBoxes;
    if (best.gain == kMustBeCut || (best.gain > 0 && room)) {
      open.push(cutter.stretch(best.first, best.cut));
      open.push(cutter.stretch(best.first + best.cut, best.count - best.cut));
    } else {
      keep(best);
    }
  }
  std::ranges::sort(cover.parts, {}, &Cover::Part::first);
  return cover;
}

Cover coverTiles(std::span<const Place> path, std::size_t tileRows, std::size_t tileColumns) {
  Cover cover;
  std::map<std::pair<std::size_t, std::size_t>, std::size_t> partOf;
  std::vector<std::size_t> parts;  // of each place
  parts.reserve(path.size());
  for (const Place place : path) {
    const auto [at, isNew] = partOf.try_emplace(
        {place.row / tileRows, place.column / tileColumns}, cover.parts.size());
    if (isNew) cover.parts.push_back({{}, 0, 0});
    Cover::Part& part = cover.parts[at->second];
    include(part.box, place);
    ++part.count;
    parts.push_back(at->second);
  }
  std::size_t before = 0;
  for (Cover::Part& part : cover.parts) {
    part.first = before;
    before += part.count;
  }
  cover.order.resize(path.size());
  std::vector<std::size_t> next;
  next.reserve(cover.parts.size());
  for (const Cover::Part& part : cover.parts) next.push_back(part.first);
  for (std::size_t n = 0; n < parts.size(); ++n) {
    cover.order[next[parts[n]]++] = static_cast<uint32_t>(n);
  }
  return cover;
}

}  // namespace NetCDF
