#include "netcdf/aheadPlan.h"

#include <algorithm>

#include "platform/memory.h"

namespace NetCDF {
namespace {

constexpr std::size_t kMegabyte = std::size_t{1} << 20;

// What a place of a batch takes beside its values: its turn, its box, its share in finding boxes.
constexpr std::size_t kPerPlace = 64;

// What stays for the library when everything of a plan is taken.
constexpr std::size_t kReserve = 16 * kMegabyte;

// A read is no smaller than this where several would do: they go through the processor's cache.
constexpr std::size_t kUsualBuffer = kMegabyte;

// Measured: microseconds for a byte that is read and converted, for a window of the file, and for a
// read of the library. A classic file is read through windows of 8 KiB, a contiguous variable of a
// netCDF-4 file through 64 KiB.
constexpr double kPerByte = 0.0002;
struct Window {
  double bytes, time, read;
};
constexpr Window kClassicWindow{8192, 1, 1};
constexpr Window kContiguousWindow{65536, 8, 30};

constexpr std::size_t kLeastRequest = kMegabyte / 4;

// A request to a server is worth so many bytes of an answer.
constexpr double kRequestInBytes = 512 * 1024;

}  // namespace

AheadPlan::AheadPlan(const ComingReads& reads, const Storage& storage, std::size_t valueBytes,
                     const AheadLimits& limits)
    : storage_(storage), valueBytes_(valueBytes), limits_(limits) {
  reads_.ncid = reads.ncid;
  reads_.varid = reads.varid;
  reads_.rank = reads.rank;
  reads_.start = reads.start;
  reads_.count = reads.count;
  for (std::size_t d = 0; d + 2 < reads.rank; ++d) {
    if (reads.count[d] == 1) continue;
    depth_ = reads.count[d];
    deepDimension_ = d;
  }
  usable_ = usablePlaces(reads.places);
  const std::size_t values = std::min(limits.staged, depth_) * valueBytes;
  perBatch_ = limits.staged / (values + kPerPlace);
}

std::optional<AheadPlan> AheadPlan::make(const ComingReads& reads, std::size_t valueBytes,
                                         const AheadLimits& limits) {
  const std::optional<Storage> storage = storageOf(reads.ncid, reads.varid, reads.rank);
  if (!storage) return std::nullopt;
  AheadPlan plan(reads, *storage, valueBytes, limits);
  if (!plan.fits()) return std::nullopt;
  // Smaller answers of a server are better than one for every read.
  while (plan.isRemote() && !plan.hasMemory() && plan.limits_.request > kLeastRequest) {
    plan.limits_.request /= 4;
  }
  if (!plan.hasMemory()) return std::nullopt;
  plan.setChunkCache();
  return plan;
}

// False also where it is not worth it, for a single read.
bool AheadPlan::fits() const {
  std::size_t deep = 0;
  for (std::size_t d = 0; d + 2 < reads_.rank; ++d) {
    const std::size_t count = reads_.count[d];
    const std::size_t length = storage_.shape[d];
    if (count < 1 || reads_.start[d] >= length || count > length - reads_.start[d]) return false;
    if (count > 1) ++deep;
  }
  return deep <= 1 && usable_ > 1 && perBatch_ > 1;
}

std::size_t AheadPlan::usablePlaces(std::span<const Place> places) const {
  const std::size_t rows = storage_.shape[reads_.rank - 2];
  const std::size_t columns = storage_.shape[reads_.rank - 1];
  const auto outside = std::ranges::find_if(places, [&](Place place) {
    return place.row >= rows || place.column >= columns;
  });
  return static_cast<std::size_t>(outside - places.begin());
}

std::size_t AheadPlan::batchFrom(std::size_t first) const {
  return first >= usable_ ? 0 : std::min(perBatch_, usable_ - first);
}

bool AheadPlan::keepsChunks() const {
  return storage_.chunkBytes() <= static_cast<double>(limits_.cache);
}

// How many of a read's values lie in one chunk.
std::size_t AheadPlan::chunkDepth() const {
  return std::min(storage_.chunk[deepDimension_], depth_);
}

// Every chunk is needed once, unless one is too large for a single read.
void AheadPlan::setChunkCache() const {
  if (storage_.layout != Layout::Chunked) return;
  const std::size_t most = keepsChunks() ? limits_.cache : 0;
  const auto chunk = static_cast<std::size_t>(
      std::min(storage_.chunkBytes(), static_cast<double>(limits_.cache)));
  limitChunkCache(reads_.ncid, reads_.varid, chunk, most);
}

bool AheadPlan::hasMemory() const {
  std::size_t bytes = kReserve + std::min(usable_, perBatch_) * (depth_ * valueBytes_ + kPerPlace);
  if (storage_.layout == Layout::Remote) {
    bytes += 3 * limits_.request;  // the library's buffer may be twice as large as an answer
  } else if (storage_.layout != Layout::Chunked) {
    bytes += kUsualBuffer;
  } else if (keepsChunks()) {
    bytes += static_cast<std::size_t>(storage_.chunkBytes()) + limits_.buffer;
  } else {
    bytes += limits_.buffers;  // the chunk itself is taken whoever reads it
  }
  return platform::hasMemoryFor(bytes);
}

// DAP sends short integers as long ones.
double AheadPlan::wireBytes() const {
  return static_cast<double>(std::max<std::size_t>(storage_.valueBytes, 4));
}

ReadCost AheadPlan::cost() const {
  const auto levels = static_cast<double>(depth_);
  if (isRemote()) {
    return {.box = kRequestInBytes, .window = 0, .row = 0, .cell = levels * wireBytes(),
            .rowsPerWindow = 1};
  }
  const Window& window =
      storage_.layout == Layout::Classic ? kClassicWindow : kContiguousWindow;
  const auto valueBytes = static_cast<double>(storage_.valueBytes);
  const double rowBytes = static_cast<double>(storage_.shape[reads_.rank - 1]) * valueBytes;
  return {.box = window.read,
          .window = levels * window.time,
          .row = levels * 0.05,
          .cell = levels * valueBytes * kPerByte,
          .rowsPerWindow = std::max(window.bytes / rowBytes, 1.0)};
}

Cover AheadPlan::cover(std::span<const Place> batch) const {
  if (storage_.layout == Layout::Chunked) {
    return coverTiles(batch, storage_.chunk[reads_.rank - 2], storage_.chunk[reads_.rank - 1]);
  }
  if (!isRemote()) return coverPath(batch, cost());
  const double mostCells =
      static_cast<double>(limits_.request) / (wireBytes() * static_cast<double>(depth_));
  return coverPath(batch, cost(), {limits_.requests, mostCells});
}

ocxNetNc::Hyperslab AheadPlan::slabOf(const Box& box) const {
  ocxNetNc::Hyperslab slab;
  slab.rank = reads_.rank;
  slab.start = reads_.start;
  slab.count = reads_.count;
  slab.stride.fill(1);
  slab.start[slab.rank - 2] = box.row;
  slab.count[slab.rank - 2] = box.rows;
  slab.start[slab.rank - 1] = box.column;
  slab.count[slab.rank - 1] = box.columns;
  return slab;
}

int64_t AheadPlan::mostAtOnce(const Box& box) const {
  const auto elements = [&](double bytes, double each) {
    return std::max<int64_t>(static_cast<int64_t>(bytes / each), 1);
  };
  if (isRemote()) return elements(static_cast<double>(limits_.request), wireBytes());
  const auto each = static_cast<double>(valueBytes_);
  const auto usual = static_cast<double>(kUsualBuffer);
  if (storage_.layout != Layout::Chunked) return elements(usual, each);
  // Whole chunks at a time, several small ones or at least one.
  const double inChunks = std::min(box.cells() * static_cast<double>(chunkDepth()), 1e18);
  const auto room = static_cast<double>(keepsChunks() ? limits_.buffer : limits_.buffers);
  const int64_t most = elements(std::clamp(inChunks * each, std::min(usual, room), room), each);
  const auto together = static_cast<int64_t>(inChunks);
  return most >= together ? most - most % together : most;
}

}  // namespace NetCDF
