#include "platform/CellPainter.h"

#include <algorithm>

namespace platform {
namespace {

// No pixel: nothing is painted there.
constexpr uint32_t kNone = 0xFF000000;
// The colours held at a time, 256 KB of them.
constexpr std::size_t kColoursAtATime = 65536;
constexpr std::size_t kFewestRuns = 16;
// Turned from columns to levels together: their pixels are a line of the cache.
constexpr std::size_t kRunsAtATime = 16;

std::size_t at(int32_t index) { return static_cast<std::size_t>(index); }

}  // namespace

bool CellPainter::paint() {
  const auto columns = pixelCover(cells_.x(), rows_.width());
  const auto bands = pixelCover(cells_.y(), rows_.height());
  if (!columns || !bands) return false;
  if (columns->empty() || bands->empty()) return true;
  const std::size_t runsAtATime = std::max(kFewestRuns, kColoursAtATime / at(cells_.levels()));
  const Runs all(*columns);
  reserve(std::min(runsAtATime, all.size()), columns->back().end - columns->front().begin);
  prepareRows(*bands, columns->front().begin, columns->back().end);
  for (std::size_t done = 0; done < all.size(); done += runsAtATime) {
    const Runs tile = all.subspan(done, std::min(runsAtATime, all.size() - done));
    gather(tile);
    runColours_.resize(tile.size());
    line_.resize(at(tile.back().end - tile.front().begin));
    for (const PixelRun& band : *bands) {
      compose(tile, band);
      write(tile.front().begin, band);
    }
  }
  return true;
}

// All memory is there before the first row is touched: a failure leaves the picture as it was.
void CellPainter::reserve(std::size_t runs, int32_t pixels) {
  const std::size_t levels = at(cells_.levels());
  found_.reserve(kRunsAtATime * levels);
  colours_.reserve(runs * levels);
  runColours_.reserve(std::max(runs, at(pixels)));
  line_.reserve(std::max(runs, at(pixels)));
  fresh_.reserve(at(rows_.height()));
}

// Of rows that count as white only the ends are made so: the cells write all of the rest.
void CellPainter::prepareRows(std::span<const PixelRun> bands, int32_t left, int32_t right) {
  fresh_.assign(at(rows_.height()), 0);
  for (int32_t y = bands.front().begin; y < bands.back().end; ++y) {
    const PixelRows::Row before = rows_.state(y);
    if (before == PixelRows::Row::Inked) continue;
    fresh_[at(y)] = 1;
    rows_.state(y) = PixelRows::Row::Inked;
    if (before == PixelRows::Row::White) continue;
    std::fill_n(rows_.start(y), left, kWhitePixel);
    std::fill_n(rows_.start(y) + right, rows_.width() - right, kWhitePixel);
  }
}

// The colours come column by column and are wanted level by level.
void CellPainter::gather(Runs tile) {
  const std::size_t levels = at(cells_.levels());
  found_.resize(kRunsAtATime * levels);
  colours_.resize(tile.size() * levels);
  for (std::size_t done = 0; done < tile.size(); done += kRunsAtATime) {
    const Runs part = tile.subspan(done, std::min(kRunsAtATime, tile.size() - done));
    std::ranges::fill(found_, CellBoxes::kUnset);
    for (std::size_t run = 0; run < part.size(); ++run) {
      resolve(part[run], std::span(found_).subspan(run * levels, levels));
    }
    for (std::size_t level = 0; level < levels; ++level) {
      uint32_t* pixel = &colours_[level * tile.size() + done];
      for (std::size_t run = 0; run < part.size(); ++run) {
        const Colour colour = found_[run * levels + level];
        *pixel++ = colour == CellBoxes::kUnset ? kNone : pixelOf(colour);
      }
    }
  }
}

// The last column is painted over those before it, in the levels where it has a colour.
void CellPainter::resolve(const PixelRun& run, std::span<Colour> colours) const {
  std::size_t first = 0, end = colours.size();
  for (int32_t column = run.last; column >= run.first; --column) {
    cells_.fillIn(column, static_cast<int32_t>(first), colours.subspan(first, end - first));
    while (first < end && colours[first] != CellBoxes::kUnset) ++first;
    while (first < end && colours[end - 1] != CellBoxes::kUnset) --end;
    if (first == end) return;
  }
}

// The last level is painted over those before it.
void CellPainter::compose(Runs tile, const PixelRun& band) {
  const auto levelOf = [&](int32_t level) {
    return std::span(colours_).subspan(at(level) * tile.size(), tile.size());
  };
  std::ranges::copy(levelOf(band.last), runColours_.begin());
  for (int32_t level = band.last - 1; level >= band.first; --level) {
    const std::span<const uint32_t> below = levelOf(level);
    for (std::size_t run = 0; run < below.size(); ++run) {
      runColours_[run] = runColours_[run] == kNone ? below[run] : runColours_[run];
    }
  }
  if (line_.size() == tile.size()) {  // a pixel each
    line_.swap(runColours_);
    return;
  }
  uint32_t* pixel = line_.data();
  for (std::size_t run = 0; run < tile.size(); ++run) {
    pixel = std::fill_n(pixel, tile[run].end - tile[run].begin, runColours_[run]);
  }
}

void CellPainter::write(int32_t left, const PixelRun& band) {
  bool onFresh = false, onInk = false;
  for (int32_t y = band.begin; y < band.end; ++y) (fresh_[at(y)] != 0 ? onFresh : onInk) = true;
  if (onInk) {
    for (auto from = line_.begin(); from != line_.end();) {
      from = std::find_if(from, line_.end(), [](uint32_t pixel) { return pixel != kNone; });
      const auto end = std::find(from, line_.end(), kNone);
      for (int32_t y = band.begin; y < band.end; ++y) {
        if (fresh_[at(y)] != 0) continue;
        std::copy(from, end, rows_.start(y) + left + (from - line_.begin()));
      }
      from = end;
    }
  }
  if (!onFresh) return;
  std::ranges::replace(line_, kNone, kWhitePixel);
  for (int32_t y = band.begin; y < band.end; ++y) {
    if (fresh_[at(y)] != 0) std::ranges::copy(line_, rows_.start(y) + left);
  }
}

}  // namespace platform
