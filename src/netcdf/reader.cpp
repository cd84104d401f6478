#include "netcdf/reader.h"

#include <cmath>
#include <cstddef>
#include <limits>

#include "netcdf/NetCDF.h"
#include "netcdf/ncf.h"
#include "netcdf/requestPieces.h"
#include "netcdf/routine.h"
#include "netcdf/wholeVariable.h"
#include "util/RuntimeError.h"
#include "util/rounding.h"

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
  int64_t product = 1;
  for (std::size_t i = 0; i < rank; ++i) {
    if (NcStart[i] < 0 || NcCount[i] < 1 || NcStride[i] < 1) util::raise(util::kSubscript);
    product *= NcCount[i];
    if (product > tcount) util::raise(util::kSubscript);
    slab.start.push_back(static_cast<std::size_t>(NcStart[i]));
    slab.count.push_back(static_cast<std::size_t>(NcCount[i]));
    slab.stride.push_back(NcStride[i]);
  }
  if (product != tcount) util::raise(util::kSubscript);
  return slab;
}

// A number as a comparison in single precision sees it: beyond the range it is infinite.
float comparable(double value) {
  constexpr double limit = 0x1.ffffffp127;
  if (value >= limit) return std::numeric_limits<float>::infinity();
  if (value <= -limit) return -std::numeric_limits<float>::infinity();
  return static_cast<float>(value);
}

struct Request {
  int32_t ncfId, variableId;
  const NcVar& variable;
  float replacement;
  util::OneBased<float>& output;
};

template <class Number>
int32_t readScaled(int (*read)(int, int, const std::size_t*, const std::size_t*,
                               const std::ptrdiff_t*, Number*),
                   const Request& request) {
  const Hyperslab slab = hyperslabOf(request.variable, request.output.size());
  // The file may have been replaced since it was catalogued, and the library takes a variable's
  // rank from the file.
  int rank = 0;
  checked(NetCDF::library.nc_inq_varndims(request.ncfId, request.variableId, &rank));
  if (rank != request.variable.NDims) util::raise(util::kSubscript);
  std::vector<Number> raw;
  const double threshold = request.variable.Missing * kMissingShare;
  int32_t accepted = 0;
  float* place = request.output.data();
  forEachPiece(slab, kMostPerRequest, [&](const Hyperslab& piece, int64_t elements) {
    raw.resize(static_cast<std::size_t>(elements));
    checked(read(request.ncfId, request.variableId, piece.start.data(), piece.count.data(),
                 piece.stride.data(), raw.data()));
    for (const Number number : raw) {
      const auto value = static_cast<double>(number);
      float& stored = *place++;
      stored = request.replacement;
      if (!isAccepted(value, threshold)) continue;
      stored = util::storeSingle(value * request.variable.Scale + request.variable.Offset);
      ++accepted;
    }
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

bool isAccepted(double raw, double threshold) {
  if (threshold == 0) return true;
  const float limit = comparable(threshold);
  return threshold < 0 ? comparable(raw) > limit : comparable(raw) < limit;
}

int32_t nc_get_varas_any(int32_t ncfId, int32_t nvar_it, float replacement,
                         util::OneBased<float>& output, int32_t tcount) {
  return runPart("nc_get_varas_any",
                 [&] { return readVariable(ncfId, nvar_it, replacement, output, tcount); });
}

}  // namespace ocxNetNc
