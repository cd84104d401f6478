#pragma once

#include <netcdf.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <vector>

#include "netcdf/aheadPlan.h"
#include "netcdf/requestPieces.h"

namespace NetCDF {

template <class Number>
using Reader = int (*)(int, int, const std::size_t*, const std::size_t*, const std::ptrdiff_t*,
                       Number*);

// Room for numbers that are written before they are read, so that nobody writes them twice.
template <class Number>
class Room {
 public:
  // Makes room for so many; what was there before is lost unless it was enough.
  void require(std::size_t count) {
    if (count <= count_) return;
    count_ = 0;
    numbers_.reset();
    numbers_ = std::make_unique_for_overwrite<Number[]>(count);
    count_ = count;
  }
  Number* data() { return numbers_.get(); }
  const Number* data() const { return numbers_.get(); }

 private:
  std::unique_ptr<Number[]> numbers_;
  std::size_t count_ = 0;
};

// The values of announced reads, filled box by box when the first value of a box is wanted.
template <class Number>
class StagedReads {
 public:
  // The reads must outlive this.
  StagedReads(const ComingReads& reads, const AheadPlan& plan) : reads_(reads), plan_(plan) {}

  // The library's status for the box with read n, which is read if that has not been tried yet;
  // kNotStaged for a read outside of the variable.
  int fetch(std::size_t n, Reader<Number> read) {
    if (n - first_ >= count_) begin(n);
    if (n - first_ >= count_) return kNotStaged;
    int& status = states_[partOf_[n - first_]];
    if (status == kUntried) status = fill(cover_.parts[partOf_[n - first_]], read);
    return status;
  }
  // The values of a read that has been fetched.
  std::span<const Number> values(std::size_t n) const {
    return {staged_.data() + (n - first_) * depth(), depth()};
  }

  static constexpr int kNotStaged = std::numeric_limits<int>::max();  // no status of the library

 private:
  static constexpr int kUntried = kNotStaged - 1;

  std::size_t depth() const { return plan_.valuesPerRead(); }

  // Makes room for the batch that begins with read n.
  void begin(std::size_t n) {
    count_ = 0;
    const std::size_t count = plan_.batchFrom(n);
    if (count == 0) return;
    batch_ = std::span(reads_.places).subspan(n, count);
    cover_ = plan_.cover(batch_);
    partOf_.resize(count);
    for (uint32_t part = 0; part < cover_.parts.size(); ++part) {
      for (const uint32_t place : placesOf(cover_.parts[part])) partOf_[place] = part;
    }
    states_.assign(cover_.parts.size(), kUntried);
    staged_.require(count * depth());
    first_ = n;
    count_ = count;
  }

  std::span<const uint32_t> placesOf(const Cover::Part& part) const {
    return std::span(cover_.order).subspan(part.first, part.count);
  }

  int fill(const Cover::Part& part, Reader<Number> read) {
    int status = NC_NOERR;
    const ocxNetNc::Hyperslab slab = plan_.slabOf(part.box);
    const auto readPiece = [&](const ocxNetNc::Hyperslab& piece, int64_t elements) {
      if (status != NC_NOERR) return;
      buffer_.require(static_cast<std::size_t>(elements));
      status = read(reads_.ncid, reads_.varid, piece.start.data(), piece.count.data(),
                    piece.stride.data(), buffer_.data());
      if (status == NC_NOERR) distribute(part, piece, elements);
    };
    ocxNetNc::forEachPiece(slab, plan_.mostAtOnce(part.box), readPiece);
    return status;
  }

  // Takes what a part's reads want out of the buffer.
  void distribute(const Cover::Part& part, const ocxNetNc::Hyperslab& piece, int64_t elements) {
    const std::size_t rank = piece.rank;
    const Box box{piece.start[rank - 2], piece.start[rank - 1], piece.count[rank - 2],
                  piece.count[rank - 1]};
    const std::size_t level = box.rows * box.columns;
    const std::size_t levels = static_cast<std::size_t>(elements) / level;
    const std::size_t above = plan_.valuesAbove(piece);
    for (const uint32_t n : placesOf(part)) {
      const Place place = batch_[n];
      if (!box.contains(place)) continue;
      const Number* from =
          buffer_.data() + (place.row - box.row) * box.columns + (place.column - box.column);
      Number* const to = staged_.data() + n * depth() + above;
      for (std::size_t k = 0; k < levels; ++k) to[k] = from[k * level];
    }
  }

  const ComingReads& reads_;
  const AheadPlan& plan_;
  std::size_t first_ = 0, count_ = 0;  // the reads of the batch
  std::span<const Place> batch_;
  Cover cover_;
  std::vector<uint32_t> partOf_;  // of each read
  std::vector<int> states_;       // of each part: a status of the library, or kUntried
  Room<Number> staged_;           // depth() values a read
  Room<Number> buffer_;
};

}  // namespace NetCDF
