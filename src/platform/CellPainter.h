#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "platform/CellBoxes.h"
#include "platform/PixelRows.h"
#include "platform/pixelCover.h"

namespace platform {

// Paints a grid of cells pixel by pixel: for each of them only the cell that is painted last
// there is asked for its colour, or the one before where that is left out. So the cost is that
// of the pixels, however many cells there are. Every pixel is written once.
class CellPainter {
 public:
  // Both must outlive the painter. The cells must be such that nothing may fail.
  CellPainter(const CellBoxes& cells, PixelRows& rows) : cells_(cells), rows_(rows) {}

  // False when the edges go back and forth, so that every cell has to be painted.
  bool paint();

 private:
  // Runs of columns that are worked on together, so that their colours stay in the cache.
  using Runs = std::span<const PixelRun>;
  // The pixels of a row of it.
  struct Line {
    std::span<uint32_t> pixels;
    bool whole;  // none is left out
  };
  void reserve(std::size_t runs, int32_t pixels);
  void prepareRows(std::span<const PixelRun> bands, int32_t left, int32_t right);
  void gather(Runs tile);
  void resolve(const PixelRun& run, std::span<uint32_t> pixels);
  Line compose(Runs tile, const PixelRun& band);
  std::span<uint32_t> widened(Runs tile, std::span<uint32_t> runColours);
  void write(int32_t left, const PixelRun& band, const Line& line);

  const CellBoxes& cells_;
  PixelRows& rows_;
  std::vector<uint32_t> below_;       // of a column that another one is painted over
  std::vector<uint32_t> columns_;     // of some runs, run by run
  std::unique_ptr<uint32_t[]> colours_;  // of a tile, level by level
  std::vector<uint32_t> merged_;      // the bits of all of a level, if some are left out
  std::vector<uint32_t> runColours_;  // of a band
  std::vector<uint32_t> line_;        // the pixels of that band
  int32_t lineLevel_ = -1;            // a level without gaps, and its pixels
  std::span<uint32_t> wholeLine_;
  std::vector<uint8_t> fresh_;  // by row: nothing but white is below
};

}  // namespace platform
