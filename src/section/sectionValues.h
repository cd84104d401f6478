#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "util/OneBased.h"

namespace KelvaneMain {

inline constexpr float kMissingValue = -1e35F;

// A value counts when it is above the missing marker, compared in single precision (NaN does
// not).
inline bool isValue(float value) { return value > kMissingValue; }

// The most values of a section: beyond it a 32-bit host would have no room left for its own.
inline constexpr int64_t kMostSectionValues = int64_t{1} << 26;

// The values of one section read, columns 1..ncols by levels 1..nlevels, with everything that a
// later repaint needs of the data set and path they came from.
class SectionGrid {
 public:
  // How many values a grid of that size has. No column or no level is run-time error 9, more than
  // kMostSectionValues values are error 7.
  static std::size_t valuesOf(int32_t ncols, int32_t nlevels);
  // Sizes the grid afresh, all zero and unmarked; the errors are those of valuesOf.
  void size(int32_t ncols, int32_t nlevels);
  // The same for who is going to store every column in order, or to call clearRest(): until then
  // the grid has anything where nothing was stored. Clearing all of it takes as long as storing.
  void beginStoring(int32_t ncols, int32_t nlevels);
  // Makes the columns that were not stored since then zero and unmarked.
  void clearRest();
  // What was stored since then, from column 1 on.
  std::span<const float> storedValues() const;

  int32_t ncols() const { return ncols_; }
  int32_t nlevels() const { return nlevels_; }
  bool empty() const { return values_.empty(); }

  float value(int32_t c, int32_t k) const { return values_[place(c, k)]; }
  // 1 where a value stands, 0 where none does; 2..9 are never stored by the reader.
  int16_t mark(int32_t c, int32_t k) const { return marks_[place(c, k)]; }
  // The whole grid, levels of a column side by side; valid until the next size().
  std::span<const float> values() const { return values_; }
  std::span<const int16_t> marks() const { return marks_; }
  // Of each column the deepest level with a value, 0 where it has none; valid as long.
  std::span<const int32_t> deepestValues() const;
  // Of each column the number of its values; where it is that of the deepest one there are no gaps.
  std::span<const int32_t> filledLevels() const { return filled_; }
  // Stores a value and marks it.
  void store(int32_t c, int32_t k, float value);
  // Stores the values of a column, one a level, and marks them.
  // Another number of values is error 9.
  void storeColumn(int32_t c, std::span<const float> column);
  // The same for all columns at once; the values of a level stand side by side.
  void storeLevels(std::span<const float> levels);
  // The values of a column, valid until the next size().
  std::span<const float> column(int32_t c) const;

  std::vector<double> depths;   // depth of level k at [k], k = 0..nlevels; [0] is never drawn
  float section_depth_max = 0;  // the deepest level

  // Depth of level k (1..nlevels); outside is error 9.
  double depth(int32_t k) const;

 private:
  std::size_t place(int32_t c, int32_t k) const;
  void markColumns(std::size_t first, std::size_t end);
  int32_t ncols_ = 0, nlevels_ = 0;
  int32_t stored_ = 0;         // columns from 1 on that have been stored, or cleared
  std::vector<float> values_;  // levels of a column side by side
  std::vector<int16_t> marks_;
  std::vector<int32_t> filled_;
  // Found when it is first asked for, since a grid is drawn more often than read.
  mutable std::vector<int32_t> deepest_;
};

// The grid held from the last read (section_values with its marks and depths).
extern SectionGrid section_values;

// Reads variable nvar_it at a time step (both from 1) along the section into section_values
// and sets the extremes of the item shown. Returns time_step, or -1 with the reason in
// LastError.
int32_t ReadVSData(int32_t nvar_it, int32_t time_step);

// The plotting-range step over the whole item list: an item gets its range from its extremes
// while it has none.
void RoundPlotRange();

}  // namespace KelvaneMain
