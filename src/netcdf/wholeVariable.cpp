#include "netcdf/wholeVariable.h"

#include <algorithm>
#include <array>

#include "netcdf/NetCDF.h"
#include "netcdf/requestPieces.h"
#include "netcdf/routine.h"
#include "util/RuntimeError.h"
#include "util/numberText.h"
#include "util/rounding.h"

namespace ocxNetNc {
namespace {

// The library's two ways of reading a number type: a whole variable, and a part of it.
template <class Number>
struct Readers {
  int (*whole)(int, int, Number*);
  int (*part)(int, int, const std::size_t*, const std::size_t*, const std::ptrdiff_t*, Number*);
};

// Reads a variable in a single request, or in several when it is large, and hands each value to
// keep(place from 0, number).
template <class Number, class Keep>
void readWhole(const Readers<Number>& readers, int32_t variable, std::size_t count,
               const Keep& keep) {
  const std::vector<std::size_t> shape = requireElements(variable, static_cast<int64_t>(count));
  std::vector<Number> raw;
  std::size_t place = 0;
  const auto keepAll = [&] {
    for (const Number number : raw) keep(place++, number);
  };
  if (count <= static_cast<std::size_t>(kMostPerRequest)) {
    raw.resize(count);
    checked(readers.whole(ncf.NcId, variable - 1, raw.data()));
    keepAll();
    return;
  }
  Hyperslab all;
  all.rank = shape.size();
  std::ranges::copy(shape, all.count.begin());
  all.stride.fill(1);
  forEachPiece(all, kMostPerRequest, [&](const Hyperslab& piece, int64_t elements) {
    raw.resize(static_cast<std::size_t>(elements));
    checked(readers.part(ncf.NcId, variable - 1, piece.start.data(), piece.count.data(),
                         piece.stride.data(), raw.data()));
    keepAll();
  });
}

}  // namespace

// The file is asked and not the catalogue: it may have been replaced since it was catalogued.
std::vector<std::size_t> requireElements(int32_t variable, int64_t count) {
  if (count > kMostElements) util::raise(util::kOutOfMemory);
  const NetCDF::EntryPoints& library = NetCDF::library;
  int rank = 0;
  checked(library.nc_inq_varndims(ncf.NcId, variable - 1, &rank));
  if (rank > kDimensionLimit) util::raise(util::kSubscript);
  std::array<int, kDimensionLimit> dimIds{};
  checked(library.nc_inq_vardimid(ncf.NcId, variable - 1, dimIds.data()));
  std::vector<std::size_t> shape;
  double elements = 1;
  for (std::size_t position = 0; position < static_cast<std::size_t>(rank); ++position) {
    std::array<char, NC_MAX_NAME + 1> name{};
    std::size_t length = 0;
    checked(library.nc_inq_dim(ncf.NcId, dimIds[position], name.data(), &length));
    elements *= static_cast<double>(length);
    shape.push_back(length);
  }
  if (elements != static_cast<double>(count)) util::raise(util::kSubscript);
  return shape;
}

int32_t dimensionLength(int32_t dimId) { return ncf.NcDims(int64_t{dimId} + 1).Length; }

void readFloats(int32_t variable, std::span<float> values) {
  const NetCDF::EntryPoints& library = NetCDF::library;
  readWhole(Readers<float>{library.nc_get_var_float, library.nc_get_vars_float}, variable,
            values.size(), [&](std::size_t place, float number) { values[place] = number; });
}

void readDoublesAsFloats(int32_t variable, std::span<float> values) {
  const NetCDF::EntryPoints& library = NetCDF::library;
  readWhole(Readers<double>{library.nc_get_var_double, library.nc_get_vars_double}, variable,
            values.size(), [&](std::size_t place, double number) {
              values[place] = util::storeSingle(number);
            });
}

void readAxis(int32_t variable, std::span<double> values, const char* message,
              const char* typePiece) {
  const NetCDF::EntryPoints& library = NetCDF::library;
  const NcVar& record = ncf.NcVars(variable);
  const auto read = [&]<class Number>(const Readers<Number>& readers) {
    readWhole(readers, variable, values.size(), [&](std::size_t place, Number number) {
      values[place] = static_cast<double>(number);
    });
  };
  switch (record.Type) {
    case NC_SHORT:
      return read(Readers<short>{library.nc_get_var_short, library.nc_get_vars_short});
    case NC_INT:
      return read(Readers<int>{library.nc_get_var_int, library.nc_get_vars_int});
    case NC_FLOAT:
      return read(Readers<float>{library.nc_get_var_float, library.nc_get_vars_float});
    case NC_DOUBLE:
      return read(Readers<double>{library.nc_get_var_double, library.nc_get_vars_double});
    default:
      throw DataProblem(typeMessage(message, record, typePiece));
  }
}

std::string typeMessage(const char* message, const NcVar& variable, const char* typePiece) {
  return joinPieces(
      {message, "Variable Name = " + variable.Name, typePiece + util::generalText(variable.Type)});
}

}  // namespace ocxNetNc
