// The check of classic headers, with any bytes as the file: what it lets through, the netCDF
// library opens or refuses, and every variable can be read, without harm.

#include <netcdf.h>

#include <algorithm>
#include <array>
#include <vector>

#include "netcdf/classicHeader.h"
#include "targets/support/files.h"
#include "targets/support/must.h"

namespace {

bool isClassic(const uint8_t* data, std::size_t size) {
  return size >= 4 && data[0] == 'C' && data[1] == 'D' && data[2] == 'F';
}

void readAttributes(int file, int variable, int count) {
  for (int i = 0; i < count; ++i) {
    std::array<char, NC_MAX_NAME + 1> name{};
    nc_type type = 0;
    std::size_t length = 0;
    if (nc_inq_attname(file, variable, i, name.data()) != NC_NOERR) continue;
    if (nc_inq_att(file, variable, name.data(), &type, &length) != NC_NOERR) continue;
    // Such a file is small, so is whatever it holds.
    MUST(length <= std::size_t{1} << 20);
    if (type == NC_CHAR) {
      std::vector<char> text(length + 1);
      nc_get_att_text(file, variable, name.data(), text.data());
    } else {
      std::vector<double> numbers(length + 1);
      nc_get_att_double(file, variable, name.data(), numbers.data());
    }
  }
}

// openEnded: the number of records is not in the header, and the library takes the mark of it for
// the number.
void readVariable(int file, int variable, bool openEnded) {
  std::array<int, NC_MAX_VAR_DIMS> dimensions{};
  int rank = 0, attributes = 0;
  nc_type type = 0;
  std::array<char, NC_MAX_NAME + 1> name{};
  if (nc_inq_var(file, variable, name.data(), &type, &rank, dimensions.data(), &attributes) !=
      NC_NOERR) {
    return;
  }
  readAttributes(file, variable, attributes);
  std::size_t count = 1;
  for (int d = 0; d < rank; ++d) {
    std::size_t length = 0;
    if (nc_inq_dimlen(file, dimensions[static_cast<std::size_t>(d)], &length) != NC_NOERR) return;
    // Whatever is in the file has room in it.
    if (length != 0 && count > (std::size_t{1} << 24) / length) {
      MUST(openEnded);
      return;
    }
    count *= length;
  }
  if (type == NC_CHAR) {
    std::vector<char> text(count + 1);
    nc_get_var_text(file, variable, text.data());
  } else {
    std::vector<double> numbers(count + 1);
    nc_get_var_double(file, variable, numbers.data());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  const std::string name =
      fuzz::writeScratch("a.nc", {reinterpret_cast<const char*>(data), size});
  const ocxNetNc::HeaderState state = ocxNetNc::checkClassicHeader(name);
  // Files that are not of these formats are no business of the check.
  if (!isClassic(data, size) || state != ocxNetNc::HeaderState::Sound) return 0;
  const bool openEnded = size >= 8 && std::count(data + 4, data + 8, 0xFF) == 4;
  int file = -1;
  if (nc_open(name.c_str(), NC_NOWRITE, &file) != NC_NOERR) return 0;
  int variables = 0, attributes = 0;
  if (nc_inq(file, nullptr, &variables, &attributes, nullptr) == NC_NOERR) {
    readAttributes(file, NC_GLOBAL, attributes);
    for (int v = 0; v < variables; ++v) readVariable(file, v, openEnded);
  }
  nc_close(file);
  return 0;
}
