#include "netcdf/reader.h"

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "netcdf/NetCDF.h"
#include "netcdf/acceptance.h"
#include "netcdf/ncf.h"
#include "netcdf/requestPieces.h"
#include "netcdf/routine.h"
#include "netcdf/status.h"
#include "netcdf/storage.h"
#include "netcdf/wholeVariable.h"
#include "util/RuntimeError.h"

namespace ocxNetNc {

std::vector<int32_t> NcStart;
std::vector<int32_t> NcCount;
std::vector<int32_t> NcStride;

namespace {

// A value's share of the missing value from which on it counts as missing.
constexpr double kMissingShare = 0.99;

// The hyperslab for a variable; run-time error 9 when it does not have the variable's rank or
// would not give tcount values, since the library would then write beyond the buffer.
Hyperslab hyperslabOf(const NcVar& variable, int32_t tcount) {
  const auto rank = static_cast<std::size_t>(variable.NDims);
  if (NcStart.size() != rank || NcCount.size() != rank || NcStride.size() != rank) {
    util::raise(util::kSubscript);
  }
  Hyperslab slab;
  slab.rank = rank;
  int64_t product = 1;
  for (std::size_t i = 0; i < rank; ++i) {
    if (NcStart[i] < 0 || NcCount[i] < 1 || NcStride[i] < 1) util::raise(util::kSubscript);
    product *= NcCount[i];
    if (product > tcount) util::raise(util::kSubscript);
    slab.start[i] = static_cast<std::size_t>(NcStart[i]);
    slab.count[i] = static_cast<std::size_t>(NcCount[i]);
    slab.stride[i] = NcStride[i];
  }
  if (product != tcount) util::raise(util::kSubscript);
  return slab;
}

// A variable of the open data set of which it is known that the file still has it with its
// catalogued number of dimensions. The library takes a variable's rank from the file, and the file
// may have been replaced since it was catalogued.
struct Known {
  int64_t opening = 0;
  int32_t variableId = -1;
} known;

void requireRank(int32_t ncfId, int32_t variableId, int32_t rank) {
  if (known.opening == openings() && known.variableId == variableId) return;
  int found = 0;
  checked(NetCDF::library.nc_inq_varndims(ncfId, variableId, &found));
  if (found != rank) util::raise(util::kSubscript);
  known = {openings(), variableId};
}

struct Request {
  int32_t ncfId, variableId;
  const NcVar& variable;
  float replacement;
  util::OneBased<float>& output;
};

// Room for the raw values of a request; that of a column is no allocation.
template <class Number>
class RawValues {
 public:
  std::span<Number> room(int64_t elements) {
    const auto size = static_cast<std::size_t>(elements);
    if (size <= few_.size()) return std::span(few_).first(size);
    if (many_.size() < size) many_.resize(size);
    return std::span(many_).first(size);
  }

 private:
  std::array<Number, 512> few_;
  std::vector<Number> many_;
};

// The most elements that are read at once. The chunks of a file are unpacked again for each of
// several reads that meet them, as all do that go along a row.
template <class Number>
int64_t mostAtOnce(const Request& request, std::size_t rank) {
  constexpr int64_t kMostBytes = int64_t{16} << 20;
  if (request.output.size() <= kMostPerRequest) return kMostPerRequest;
  const auto storage = NetCDF::storageOf(request.ncfId, request.variableId, rank);
  if (!storage || storage->layout != NetCDF::Layout::Chunked) return kMostPerRequest;
  return kMostBytes / static_cast<int64_t>(sizeof(Number));
}

template <class Number>
int32_t readScaled(int (*read)(int, int, const std::size_t*, const std::size_t*,
                               const std::ptrdiff_t*, Number*),
                   const Request& request) {
  const Hyperslab slab = hyperslabOf(request.variable, request.output.size());
  requireRank(request.ncfId, request.variableId, request.variable.NDims);
  const Conversion how{request.variable.Missing * kMissingShare, request.variable.Scale,
                       request.variable.Offset, request.replacement};
  RawValues<Number> raw;
  int32_t accepted = 0;
  float* place = request.output.data();
  const int64_t most = mostAtOnce<Number>(request, slab.rank);
  forEachPiece(slab, most, [&](const Hyperslab& piece, int64_t elements) {
    const std::span<Number> numbers = raw.room(elements);
    checked(read(request.ncfId, request.variableId, piece.start.data(), piece.count.data(),
                 piece.stride.data(), numbers.data()));
    accepted += convert(numbers, how, place);
    place += elements;
  });
  return accepted;
}

int32_t readVariable(int32_t ncfId, int32_t nvar_it, float replacement,
                     util::OneBased<float>& output, int32_t tcount) {
  if (nvar_it < 0) throw DataProblem("[nc_get_varas_any] nvar_it < 0:");
  if (ncfId < 0) throw DataProblem("[nc_get_varas_any] ncfId& < 0:");
  if (tcount < 1) throw DataProblem("[nc_get_varas_any] tcount& <= 0:");
  const NcVar& variable = ncf.NcVars(nvar_it);
  output.assign(tcount);
  const NetCDF::EntryPoints& library = NetCDF::library;
  const Request request{ncfId, nvar_it - 1, variable, replacement, output};
  switch (variable.Type) {
    case NC_CHAR:
      return 0;
    case NC_BYTE:
    case NC_SHORT:
      return readScaled(library.nc_get_vars_short, request);
    case NC_INT:
      return readScaled(library.nc_get_vars_int, request);
    case NC_FLOAT:
      return readScaled(library.nc_get_vars_float, request);
    case NC_DOUBLE:
      return readScaled(library.nc_get_vars_double, request);
    default:
      throw DataProblem(
          typeMessage("Variable-Type of Attribute not expected:", variable, "Tyep Number = "));
  }
}

}  // namespace

bool isAccepted(double raw, double threshold) { return Acceptance(threshold)(raw); }

int32_t nc_get_varas_any(int32_t ncfId, int32_t nvar_it, float replacement,
                         util::OneBased<float>& output, int32_t tcount) {
  return runPart("nc_get_varas_any",
                 [&] { return readVariable(ncfId, nvar_it, replacement, output, tcount); });
}

}  // namespace ocxNetNc
