#include "CsvSection.h"

#include <netcdf.h>

#include <charconv>
#include <sstream>
#include <stdexcept>

namespace cli_test {
namespace {

template <class Number>
Number number(const std::string& text) {
  Number value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) {
    throw std::runtime_error("not a number: '" + text + "'");
  }
  return value;
}

Row parseLine(const std::string& line) {
  std::vector<std::string> fields(1);
  for (const char c : line) {
    if (c == ',')
      fields.emplace_back();
    else
      fields.back() += c;
  }
  if (fields.size() != 9) throw std::runtime_error("not nine fields: '" + line + "'");
  Row row{number<int32_t>(fields[0]), number<int32_t>(fields[1]), number<int32_t>(fields[2]),
          number<float>(fields[3]),   number<float>(fields[4]),   number<float>(fields[5]),
          number<int32_t>(fields[6]), number<float>(fields[7]),   std::nullopt};
  if (!fields[8].empty()) row.value = number<float>(fields[8]);
  return row;
}

void must(int status) {
  if (status != NC_NOERR) throw std::runtime_error(nc_strerror(status));
}

}  // namespace

std::vector<Row> parseCsv(const std::string& text) {
  std::istringstream lines(text);
  std::string line;
  if (!std::getline(lines, line) || line != "column,i,j,lon,lat,km,level,depth,value") {
    throw std::runtime_error("no such header: '" + line + "'");
  }
  std::vector<Row> rows;
  while (std::getline(lines, line)) rows.push_back(parseLine(line));
  return rows;
}

Reference::Reference(const std::string& path) {
  must(nc_open(path.c_str(), 0, &ncid_));
}

Reference::~Reference() {
  nc_close(ncid_);
}

float Reference::coordinate(const char* variable, int32_t at) const {
  int id = -1;
  must(nc_inq_varid(ncid_, variable, &id));
  const std::size_t index = static_cast<std::size_t>(at - 1);
  float value = 0;
  must(nc_get_var1_float(ncid_, id, &index, &value));
  return value;
}

std::optional<float> Reference::value(const char* variable, int32_t step, int32_t level, int32_t j,
                                      int32_t i) const {
  int id = -1;
  must(nc_inq_varid(ncid_, variable, &id));
  const std::size_t index[] = {static_cast<std::size_t>(step - 1),
                               static_cast<std::size_t>(level - 1), static_cast<std::size_t>(j - 1),
                               static_cast<std::size_t>(i - 1)};
  double raw = 0;
  must(nc_get_var1_double(ncid_, id, index, &raw));
  if (missing != 0 && static_cast<float>(raw) == static_cast<float>(missing)) return std::nullopt;
  return static_cast<float>(raw * scale + offset);
}

}  // namespace cli_test
