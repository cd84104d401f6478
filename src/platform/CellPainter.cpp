#include "platform/CellPainter.h"

#include <algorithm>

namespace platform {
namespace {

// Set in kNoPixel alone.
constexpr uint32_t kNotColour = 0xFF000000;
// The colours held at a time, 4 MB of them.
constexpr std::size_t kColoursAtATime = std::size_t{1} << 20U;
constexpr std::size_t kFewestRuns = 16;
// Turned from columns to levels together: their pixels are a line of the cache.
constexpr std::size_t kRunsAtATime = 16;

std::size_t at(int32_t index) { return static_cast<std::size_t>(index); }

bool anyLeftOut(std::span<const uint32_t> pixels) {
  uint32_t all = 0;
  for (const uint32_t pixel : pixels) all |= pixel;
  return (all & kNotColour) != 0;
}

// Writes columns of pixels as rows that many pixels apart. How many columns is best known when
// this is compiled; 0 where it is not.
template <std::size_t kColumns>
void turn(std::span<const uint32_t> columns, std::size_t count, uint32_t* rows,
          std::size_t apart) {
  const std::size_t inARow = kColumns == 0 ? count : kColumns;
  const std::size_t height = columns.size() / kRunsAtATime;
  for (std::size_t y = 0; y < height; ++y, rows += apart) {
    for (std::size_t x = 0; x < inARow; ++x) rows[x] = columns[x * height + y];
  }
}

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
    for (const PixelRun& band : *bands) write(tile.front().begin, band, compose(tile, band));
  }
  return true;
}

// All memory is there before the first row is touched: a failure leaves the picture as it was.
void CellPainter::reserve(std::size_t runs, int32_t pixels) {
  const std::size_t levels = at(cells_.levels());
  below_.resize(levels);
  columns_.resize(kRunsAtATime * levels);
  colours_ = std::make_unique_for_overwrite<uint32_t[]>(runs * levels);
  merged_.resize(levels);
  runColours_.resize(runs);
  line_.resize(at(pixels));
  fresh_.resize(at(rows_.height()));
}

// Of rows that count as white only the ends are made so: the cells write all of the rest.
void CellPainter::prepareRows(std::span<const PixelRun> bands, int32_t left, int32_t right) {
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
  std::ranges::fill(merged_, 0U);
  lineLevel_ = -1;
  for (std::size_t done = 0; done < tile.size(); done += kRunsAtATime) {
    const std::size_t runs = std::min(kRunsAtATime, tile.size() - done);
    for (std::size_t run = 0; run < runs; ++run) {
      if (done + run + 1 < tile.size()) cells_.expect(tile[done + run + 1].last);
      const auto column = std::span(columns_).subspan(run * levels, levels);
      resolve(tile[done + run], column);
    }
    uint32_t* const first = &colours_[done];
    if (runs == kRunsAtATime) {
      turn<kRunsAtATime>(columns_, runs, first, tile.size());
    } else {
      turn<0>(columns_, runs, first, tile.size());
    }
  }
}

// The last column is painted over those before it, in the levels where it has a colour.
void CellPainter::resolve(const PixelRun& run, std::span<uint32_t> pixels) {
  const std::size_t known = cells_.pixels(run.last, 0, pixels);
  std::ranges::fill(pixels.subspan(known), kNoPixel);
  // All that are left out are from first up to end.
  std::size_t first = anyLeftOut(pixels.first(known)) ? 0 : known, end = pixels.size();
  for (int32_t column = run.last - 1; column >= run.first && first < end; --column) {
    const std::size_t more = cells_.pixels(column, static_cast<int32_t>(first),
                                           std::span(below_).first(end - first));
    for (std::size_t k = 0; k < more; ++k) {
      uint32_t& pixel = pixels[first + k];
      pixel = pixel == kNoPixel ? below_[k] : pixel;
    }
    while (first < end && pixels[first] != kNoPixel) ++first;
    while (first < end && pixels[end - 1] != kNoPixel) --end;
  }
  for (; first < end; ++first) merged_[first] |= pixels[first];
}

// The last level is painted over those before it.
CellPainter::Line CellPainter::compose(Runs tile, const PixelRun& band) {
  const auto levelOf = [&](int32_t level) {
    return std::span(&colours_[at(level) * tile.size()], tile.size());
  };
  if ((merged_[at(band.last)] & kNotColour) == 0) {
    if (lineLevel_ != band.last) wholeLine_ = widened(tile, levelOf(band.last));
    lineLevel_ = band.last;
    return {wholeLine_, true};
  }
  lineLevel_ = -1;
  const std::span colours = std::span(runColours_).first(tile.size());
  std::ranges::copy(levelOf(band.last), colours.begin());
  for (int32_t level = band.last - 1; level >= band.first; --level) {
    const std::span<const uint32_t> below = levelOf(level);
    for (std::size_t run = 0; run < below.size(); ++run) {
      colours[run] = colours[run] == kNoPixel ? below[run] : colours[run];
    }
  }
  return {widened(tile, colours), !anyLeftOut(colours)};
}

// As many pixels as the runs are wide.
std::span<uint32_t> CellPainter::widened(Runs tile, std::span<uint32_t> runColours) {
  const std::size_t width = at(tile.back().end - tile.front().begin);
  if (width == tile.size()) return runColours;
  uint32_t* pixel = line_.data();
  for (std::size_t run = 0; run < tile.size(); ++run) {
    for (int32_t x = tile[run].begin; x < tile[run].end; ++x) *pixel++ = runColours[run];
  }
  return std::span(line_).first(width);
}

void CellPainter::write(int32_t left, const PixelRun& band, const Line& line) {
  const std::span<uint32_t> pixels = line.pixels;
  bool onInk = false;
  for (int32_t y = band.begin; y < band.end; ++y) onInk = onInk || fresh_[at(y)] == 0;
  if (onInk && !line.whole) {
    for (auto from = pixels.begin(); from != pixels.end();) {
      from = std::find_if(from, pixels.end(), [](uint32_t pixel) { return pixel != kNoPixel; });
      const auto end = std::find(from, pixels.end(), kNoPixel);
      for (int32_t y = band.begin; y < band.end; ++y) {
        if (fresh_[at(y)] != 0) continue;
        std::copy(from, end, rows_.start(y) + left + (from - pixels.begin()));
      }
      from = end;
    }
  }
  if (!line.whole) {
    for (uint32_t& pixel : pixels) pixel &= kWhitePixel;  // all that is left out
  }
  for (int32_t y = band.begin; y < band.end; ++y) {
    if (fresh_[at(y)] != 0 || line.whole) std::ranges::copy(pixels, rows_.start(y) + left);
  }
}

}  // namespace platform
