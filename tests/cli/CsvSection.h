#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace cli_test {

// One line of what "kelvane values" lists.
struct Row {
  int32_t column = 0, i = 0, j = 0;
  float lon = 0, lat = 0, km = 0;
  int32_t level = 0;
  float depth = 0;
  std::optional<float> value;
};

// Parses the listing; throws std::runtime_error where a line is not as the header says.
std::vector<Row> parseCsv(const std::string& text);

// Reads single numbers of a file through netCDF alone, unpacked by the scale and offset given.
class Reference {
 public:
  explicit Reference(const std::string& path);
  ~Reference();
  Reference(const Reference&) = delete;
  Reference& operator=(const Reference&) = delete;

  // Element at of a coordinate variable, counted from 1.
  float coordinate(const char* variable, int32_t at) const;
  // The value of a variable of time, level, j and i, all counted from 1; nothing where the file
  // holds the missing value.
  std::optional<float> value(const char* variable, int32_t step, int32_t level, int32_t j,
                             int32_t i) const;

  double scale = 1, offset = 0, missing = 0;

 private:
  int ncid_ = -1;
};

}  // namespace cli_test
