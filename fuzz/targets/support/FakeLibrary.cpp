#include "targets/support/FakeLibrary.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include "netcdf/NetCDF.h"
#include "netcdf/readAhead.h"
#include "targets/support/DataSet.h"
#include "targets/support/must.h"

namespace fuzz {
namespace {

Input* input = nullptr;
DataSet held;
bool open = false;
bool faultless = true;

// A refusal now and then, where the input wants any.
int status() {
  if (faultless || input->byte() != '!') return NC_NOERR;
  return std::array{NC_EBADID, NC_EHDFERR, NC_EDAP, NC_ENOMEM, 2, NC_EAUTH, NC_ERANGE, -9999}
      [static_cast<std::size_t>(input->choice(8))];
}

bool has(int place, std::size_t count) {
  return place >= 0 && static_cast<std::size_t>(place) < count;
}

void copyName(char* to, const std::string& name) {
  if (to != nullptr) std::memcpy(to, name.c_str(), name.size() + 1);
}

const std::vector<Attribute>* attributesOf(int variable) {
  if (variable == NC_GLOBAL) return &held.attributes;
  return has(variable, held.variables.size())
             ? &held.variables[static_cast<std::size_t>(variable)].attributes
             : nullptr;
}

const Attribute* attributeOf(int variable, const char* name) {
  const auto* all = attributesOf(variable);
  if (all == nullptr) return nullptr;
  const auto found = std::ranges::find(*all, std::string(name), &Attribute::name);
  return found == all->end() ? nullptr : &*found;
}

const Variable* variableOf(int variable) {
  MUST(open);
  return has(variable, held.variables.size())
             ? &held.variables[static_cast<std::size_t>(variable)]
             : nullptr;
}

template <class Number>
Number numberOf(double value) {
  if constexpr (std::is_same_v<Number, double>) return value;
  constexpr auto most = static_cast<double>(std::numeric_limits<Number>::max());
  if (std::is_same_v<Number, float> && !(value <= most && value >= -most)) {
    return static_cast<Number>(value > 0 ? INFINITY : value < 0 ? -INFINITY : NAN);
  }
  return value <= most && value >= -most ? static_cast<Number>(value) : Number{};
}

template <class Number>
int attributeNumbers(int, int variable, const char* name, Number* to) {
  const Attribute* attribute = attributeOf(variable, name);
  if (attribute == nullptr) return NC_ENOTATT;
  if (attribute->type == NC_CHAR) return NC_ECHAR;
  for (const double number : attribute->numbers) *to++ = numberOf<Number>(number);
  return status();
}

// Values climb by one, so that coordinates are of use, with some of the input's among them.
template <class Number>
void fill(Number* to, std::size_t count) {
  MUST(count <= std::size_t{1} << 26);
  const int32_t strange = input->choice(8);
  for (std::size_t i = 0; i < count; ++i) {
    to[i] = numberOf<Number>(static_cast<double>(i % 1000));
  }
  if (strange < 6) return;
  for (int32_t left = strange; left > 0 && count > 0; --left) {
    to[input->byte() % count] = numberOf<Number>(input->real());
  }
}

template <class Number>
int wholeVariable(int, int number, Number* to) {
  const Variable* variable = variableOf(number);
  if (variable == nullptr) return NC_ENOTVAR;
  if (variable->type == NC_CHAR) return NC_ECHAR;
  std::size_t count = 1;
  for (const int dimension : variable->dimensions) {
    count *= held.dimensions[static_cast<std::size_t>(dimension)].length;
  }
  fill(to, count);
  return status();
}

template <class Number>
int hyperslab(int, int number, const std::size_t* start, const std::size_t* counts,
              const std::ptrdiff_t* stride, Number* to) {
  const Variable* variable = variableOf(number);
  if (variable == nullptr) return NC_ENOTVAR;
  if (variable->type == NC_CHAR) return NC_ECHAR;
  std::size_t count = 1;
  for (std::size_t d = 0; d < variable->dimensions.size(); ++d) {
    MUST(counts[d] >= 1 && stride[d] >= 1);
    const std::size_t length =
        held.dimensions[static_cast<std::size_t>(variable->dimensions[d])].length;
    const std::size_t last = (counts[d] - 1) * static_cast<std::size_t>(stride[d]);
    if (start[d] >= length || last > length - 1 - start[d]) return NC_EEDGE;
    count *= counts[d];
  }
  fill(to, count);
  return status();
}

int openDataSet(const char*, int mode, int* id) {
  MUST(mode == NC_NOWRITE && !open);
  if (const int refusal = status()) return refusal;
  for (int32_t left = input->choice(10); left > 0; --left) changeDataSet(held, *input);
  open = true;
  *id = 0;
  return NC_NOERR;
}

// How a variable is stored, the same for all: what reading ahead plans by.
struct Storage {
  int format = NC_FORMATX_NC3;
  int kind = NC_CONTIGUOUS;
  std::array<std::size_t, 8> chunk{};
};
Storage storage;

Storage anyStorage() {
  Storage made;
  made.format = std::array{NC_FORMATX_NC3, NC_FORMATX_NC_HDF5, NC_FORMATX_DAP2, 99}
      [static_cast<std::size_t>(input->choice(4))];
  made.kind = std::array{NC_CONTIGUOUS, NC_CHUNKED, NC_COMPACT, 99}
      [static_cast<std::size_t>(input->choice(4))];
  for (std::size_t& length : made.chunk) length = anyLength(*input);
  return made;
}

int variableChunking(int, int number, int* kind, std::size_t* lengths) {
  const Variable* variable = variableOf(number);
  if (variable == nullptr) return NC_ENOTVAR;
  if (kind != nullptr) *kind = storage.kind;
  if (lengths != nullptr && storage.kind == NC_CHUNKED) {
    std::copy_n(storage.chunk.begin(), std::min(variable->dimensions.size(), storage.chunk.size()),
                lengths);
  }
  return status();
}

// Reads that were announced go through the reading ahead, as in the system.
void putReadingAheadBefore(NetCDF::EntryPoints& calls) {
  calls.nc_close = NetCDF::closeBehindReads;
  calls.nc_get_vars_short = NetCDF::readAhead<short>;
  calls.nc_get_vars_int = NetCDF::readAhead<int>;
  calls.nc_get_vars_float = NetCDF::readAhead<float>;
  calls.nc_get_vars_double = NetCDF::readAhead<double>;
}

}  // namespace

FakeLibrary::FakeLibrary(Input& from) {
  input = &from;
  held = regularDataSet();
  open = false;
  faultless = from.coin();
  storage = from.coin() ? anyStorage() : Storage{};
  NetCDF::EntryPoints& calls = NetCDF::beneath;
  calls.nc_open = openDataSet;
  calls.nc_close = [](int) {
    MUST(open);
    open = false;
    return status();
  };
  calls.nc_inq_ndims = [](int, int* count) {
    *count = static_cast<int>(held.dimensions.size());
    return status();
  };
  calls.nc_inq_unlimdim = [](int, int* id) {
    *id = held.unlimited;
    return status();
  };
  calls.nc_inq_dim = [](int, int id, char* name, std::size_t* length) {
    if (!has(id, held.dimensions.size())) return NC_EBADDIM;
    const Dimension& dimension = held.dimensions[static_cast<std::size_t>(id)];
    copyName(name, dimension.name);
    if (length != nullptr) *length = dimension.length;
    return status();
  };
  calls.nc_inq_nvars = [](int, int* count) {
    *count = static_cast<int>(held.variables.size());
    return status();
  };
  calls.nc_inq_varname = [](int, int id, char* name) {
    const Variable* variable = variableOf(id);
    if (variable == nullptr) return NC_ENOTVAR;
    copyName(name, variable->name);
    return status();
  };
  calls.nc_inq_varndims = [](int, int id, int* count) {
    const Variable* variable = variableOf(id);
    if (variable == nullptr) return NC_ENOTVAR;
    *count = static_cast<int>(variable->dimensions.size());
    return status();
  };
  calls.nc_inq_vartype = [](int, int id, nc_type* type) {
    const Variable* variable = variableOf(id);
    if (variable == nullptr) return NC_ENOTVAR;
    *type = variable->type;
    return status();
  };
  calls.nc_inq_vardimid = [](int, int id, int* dimensions) {
    const Variable* variable = variableOf(id);
    if (variable == nullptr) return NC_ENOTVAR;
    std::ranges::copy(variable->dimensions, dimensions);
    return status();
  };
  calls.nc_inq_natts = [](int, int* count) {
    *count = static_cast<int>(held.attributes.size());
    return status();
  };
  calls.nc_inq_varnatts = [](int, int id, int* count) {
    const auto* all = attributesOf(id);
    if (all == nullptr) return NC_ENOTVAR;
    *count = static_cast<int>(all->size());
    return status();
  };
  calls.nc_inq_attname = [](int, int id, int place, char* name) {
    const auto* all = attributesOf(id);
    if (all == nullptr || !has(place, all->size())) return NC_ENOTATT;
    copyName(name, (*all)[static_cast<std::size_t>(place)].name);
    return status();
  };
  calls.nc_inq_att = [](int, int id, const char* name, nc_type* type, std::size_t* length) {
    const Attribute* attribute = attributeOf(id, name);
    if (attribute == nullptr) return NC_ENOTATT;
    if (type != nullptr) *type = attribute->type;
    if (length != nullptr) *length = attribute->length();
    return status();
  };
  calls.nc_get_att_text = [](int, int id, const char* name, char* to) {
    const Attribute* attribute = attributeOf(id, name);
    if (attribute == nullptr) return NC_ENOTATT;
    if (attribute->type != NC_CHAR) return NC_ECHAR;
    std::ranges::copy(attribute->text, to);
    return status();
  };
  calls.nc_get_att_short = attributeNumbers<short>;
  calls.nc_get_att_int = attributeNumbers<int>;
  calls.nc_get_att_float = attributeNumbers<float>;
  calls.nc_get_att_double = attributeNumbers<double>;
  calls.nc_get_var_short = wholeVariable<short>;
  calls.nc_get_var_int = wholeVariable<int>;
  calls.nc_get_var_float = wholeVariable<float>;
  calls.nc_get_var_double = wholeVariable<double>;
  calls.nc_get_vars_short = hyperslab<short>;
  calls.nc_get_vars_int = hyperslab<int>;
  calls.nc_get_vars_float = hyperslab<float>;
  calls.nc_get_vars_double = hyperslab<double>;
  calls.nc_inq_format_extended = [](int, int* format, int* mode) {
    if (format != nullptr) *format = storage.format;
    if (mode != nullptr) *mode = 0;
    return status();
  };
  calls.nc_inq_var_chunking = variableChunking;
  calls.nc_get_var_chunk_cache = [](int, int, std::size_t* bytes, std::size_t* slots,
                                    float* preemption) {
    *bytes = anyLength(*input);
    *slots = anyLength(*input);
    *preemption = 0.75F;
    return status();
  };
  calls.nc_set_var_chunk_cache = [](int, int number, std::size_t, std::size_t, float preemption) {
    MUST(preemption >= 0 && preemption <= 1);
    return variableOf(number) == nullptr ? NC_ENOTVAR : status();
  };
  NetCDF::library = calls;
  putReadingAheadBefore(NetCDF::library);
}

FakeLibrary::~FakeLibrary() {
  NetCDF::forgetReads();
  NetCDF::library = NetCDF::theLibrary();
  NetCDF::beneath = NetCDF::bareLibrary();
  input = nullptr;
}

}  // namespace fuzz
