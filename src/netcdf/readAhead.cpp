#include "netcdf/readAhead.h"

#include <algorithm>
#include <memory>
#include <new>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>

#include "netcdf/NetCDF.h"
#include "netcdf/aheadPlan.h"
#include "netcdf/stagedReads.h"

namespace NetCDF {
namespace {

// The reads announced, and how far they have come.
class Ahead {
 public:
  Ahead(ComingReads reads, const AheadLimits& limits)
      : reads_(std::move(reads)), limits_(limits) {}

  bool isFor(int ncid) const { return reads_.ncid == ncid; }

  // Whether a read is the one that comes next.
  bool isNext(int ncid, int varid, const std::size_t* start, const std::size_t* count,
              const std::ptrdiff_t* stride) const {
    if (ncid != reads_.ncid || varid != reads_.varid || next_ >= reads_.places.size()) return false;
    const std::size_t level = reads_.rank - 2;
    for (std::size_t d = 0; d < level; ++d) {
      if (start[d] != reads_.start[d] || count[d] != reads_.count[d]) return false;
    }
    const Place place{start[level], start[level + 1]};
    return place == reads_.places[next_] && count[level] == 1 && count[level + 1] == 1 &&
           std::all_of(stride, stride + reads_.rank, [](std::ptrdiff_t step) { return step == 1; });
  }

  // Serves the next read; nothing when it has to be done by itself.
  template <class Number>
  std::optional<int> serve(Reader<Number> read, Number* values) {
    const std::size_t n = next_++;
    if (!plan_ && !tried_) {
      tried_ = true;
      plan_ = AheadPlan::make(reads_, sizeof(Number), limits_);
      if (plan_) staged_.emplace<StagedReads<Number>>(reads_, *plan_);
    }
    auto* const staged = std::get_if<StagedReads<Number>>(&staged_);
    if (staged == nullptr) return std::nullopt;
    const int status = staged->fetch(n, read);
    if (status == NC_NOERR) {
      std::ranges::copy(staged->values(n), values);
      return status;
    }
    // A number between the reads may be out of range where theirs are not. Whatever else a server
    // fails with, it would fail with for every single read too, each after its own wait.
    const bool failed = status != StagedReads<Number>::kNotStaged && status != NC_ERANGE;
    return plan_->isRemote() && failed ? std::optional(status) : std::nullopt;
  }

 private:
  ComingReads reads_;
  AheadLimits limits_;
  std::size_t next_ = 0;
  bool tried_ = false;
  std::optional<AheadPlan> plan_;
  std::variant<std::monostate, StagedReads<short>, StagedReads<int>, StagedReads<float>,
               StagedReads<double>>
      staged_;
};

std::unique_ptr<Ahead> ahead;

template <class Number>
Reader<Number> plainReader() {
  if constexpr (std::is_same_v<Number, short>) return beneath.nc_get_vars_short;
  if constexpr (std::is_same_v<Number, int>) return beneath.nc_get_vars_int;
  if constexpr (std::is_same_v<Number, float>) return beneath.nc_get_vars_float;
  if constexpr (std::is_same_v<Number, double>) return beneath.nc_get_vars_double;
}

}  // namespace

void announceReads(ComingReads reads, const AheadLimits& limits) {
  forgetReads();
  if (reads.rank < 2 || reads.rank > reads.start.size()) return;
  ahead = std::make_unique<Ahead>(std::move(reads), limits);
}

void forgetReads() noexcept { ahead.reset(); }

template <class Number>
int readAhead(int ncid, int varid, const std::size_t* start, const std::size_t* count,
              const std::ptrdiff_t* stride, Number* values) {
  const Reader<Number> read = plainReader<Number>();
  if (ahead && ahead->isNext(ncid, varid, start, count, stride)) {
    try {
      if (const std::optional<int> status = ahead->serve(read, values)) return *status;
    } catch (const std::bad_alloc&) {
      forgetReads();
    }
  }
  return read(ncid, varid, start, count, stride, values);
}

template int readAhead(int, int, const std::size_t*, const std::size_t*, const std::ptrdiff_t*,
                       short*);
template int readAhead(int, int, const std::size_t*, const std::size_t*, const std::ptrdiff_t*,
                       int*);
template int readAhead(int, int, const std::size_t*, const std::size_t*, const std::ptrdiff_t*,
                       float*);
template int readAhead(int, int, const std::size_t*, const std::size_t*, const std::ptrdiff_t*,
                       double*);

int closeBehindReads(int ncid) {
  if (ahead && ahead->isFor(ncid)) forgetReads();
  return beneath.nc_close(ncid);
}

}  // namespace NetCDF
