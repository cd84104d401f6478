#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "netcdf/pathCover.h"
#include "netcdf/readAhead.h"
#include "netcdf/requestPieces.h"
#include "netcdf/storage.h"

namespace NetCDF {

// How announced reads are going to be read: what suits the storage of their variable and stays
// within the limits.
class AheadPlan {
 public:
  // A plan for reads into values of so many bytes, made for an open data set, whose chunk cache is
  // set to what the plan needs. Nothing where reading ahead would do no good.
  static std::optional<AheadPlan> make(const ComingReads& reads, std::size_t valueBytes,
                                       const AheadLimits& limits);

  bool isRemote() const { return storage_.layout == Layout::Remote; }
  // Values of a single read.
  std::size_t valuesPerRead() const { return depth_; }
  // Reads from `first` on whose values are held at the same time; 0 for a read outside of the
  // variable's shape, which the library has to refuse.
  std::size_t batchFrom(std::size_t first) const;
  // The boxes in which a batch is read.
  Cover cover(std::span<const Place> batch) const;
  // The hyperslab of a box, and the most elements of it that are read at once.
  ocxNetNc::Hyperslab slabOf(const Box& box) const;
  int64_t mostAtOnce(const Box& box) const;
  // How many values of each read stand before those of a piece of such a hyperslab.
  std::size_t valuesAbove(const ocxNetNc::Hyperslab& piece) const {
    return depth_ > 1 ? piece.start[deepDimension_] - reads_.start[deepDimension_] : 0;
  }

 private:
  AheadPlan(const ComingReads& reads, const Storage& storage, std::size_t valueBytes,
            const AheadLimits& limits);
  bool fits() const;
  std::size_t usablePlaces(std::span<const Place> places) const;
  bool keepsChunks() const;
  std::size_t chunkDepth() const;
  void setChunkCache() const;
  bool hasMemory() const;
  ReadCost cost() const;
  double wireBytes() const;

  ComingReads reads_;  // without the places
  Storage storage_;
  std::size_t valueBytes_;
  AheadLimits limits_;
  std::size_t depth_ = 1;       // values of a read
  std::size_t deepDimension_ = 0;  // the dimension along which they lie
  std::size_t usable_ = 0;      // places inside of the variable's shape, up to the first outside
  std::size_t perBatch_ = 0;    // the most places of a batch
};

}  // namespace NetCDF
