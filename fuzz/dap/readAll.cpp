#include "readAll.h"

#include <netcdf.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace fuzz {
namespace {

constexpr std::size_t kMostValues = 2'000'000;

void readAttributes(int id, int variable) {
  int count = 0;
  if (variable == NC_GLOBAL) {
    nc_inq_natts(id, &count);
  } else {
    nc_inq_varnatts(id, variable, &count);
  }
  for (int number = 0; number < count; ++number) {
    std::array<char, NC_MAX_NAME + 1> name{};
    nc_type type = NC_NAT;
    std::size_t length = 0;
    if (nc_inq_attname(id, variable, number, name.data()) != 0 ||
        nc_inq_att(id, variable, name.data(), &type, &length) != 0) {
      continue;
    }
    std::vector<double> values(length + 1);
    nc_get_att(id, variable, name.data(), values.data());
  }
}

void readVariable(int id, int variable, bool strided, Counts& counts) {
  int rank = 0;
  std::array<int, NC_MAX_VAR_DIMS> dimensions{};
  nc_type type = NC_NAT;
  if (nc_inq_varndims(id, variable, &rank) != 0 || rank > 5 ||
      nc_inq_vardimid(id, variable, dimensions.data()) != 0 ||
      nc_inq_vartype(id, variable, &type) != 0) {
    return;
  }
  std::vector<std::size_t> start(5, 0), count(5, 1);
  std::vector<std::ptrdiff_t> stride(5, 1);
  std::size_t total = 1;
  for (std::size_t i = 0; i < static_cast<std::size_t>(rank); ++i) {
    nc_inq_dimlen(id, dimensions[i], &count[i]);
    if (strided && count[i] > 2) {
      start[i] = 1;
      count[i] = (count[i] - 1) / 2;
      stride[i] = 2;
    }
    if (rank > 2) count[i] = std::min<std::size_t>(count[i], 64);
    if (count[i] == 0 || total > kMostValues / count[i]) return;
    total *= count[i];
  }
  int status = 0;
  if (type == NC_CHAR) {
    std::vector<char> values(total);
    status = nc_get_vars_text(id, variable, start.data(), count.data(), stride.data(),
                              values.data());
  } else if (strided) {
    std::vector<float> values(total);
    status = nc_get_vars_float(id, variable, start.data(), count.data(), stride.data(),
                               values.data());
  } else {
    std::vector<double> values(total);
    status = nc_get_vars_double(id, variable, start.data(), count.data(), stride.data(),
                                values.data());
  }
  ++(status == 0 ? counts.valuesRead : counts.valuesRefused);
}

}  // namespace

void readAll(const std::string& name, Counts& counts) {
  int id = -1;
  if (nc_open(name.c_str(), NC_NOWRITE, &id) != 0) return;
  ++counts.opened;
  int variables = 0;
  nc_inq_nvars(id, &variables);
  for (int variable = NC_GLOBAL; variable < variables; ++variable) readAttributes(id, variable);
  for (const bool strided : {false, true}) {
    for (int variable = 0; variable < variables; ++variable) {
      readVariable(id, variable, strided, counts);
    }
  }
  nc_close(id);
}

}  // namespace fuzz
