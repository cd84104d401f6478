#include "dataSets.h"

#include <algorithm>

namespace bench {
namespace {

constexpr double kTwelfth = 1.0 / 12.0;
constexpr std::array<std::size_t, 4> kNone = {};

DataSet regional(const std::string& layout, std::size_t steps, Format format,
                 const std::array<std::size_t, 4>& chunk) {
  return {"regional-" + layout, 600, 400, 50, steps, 285, 20, kTwelfth, format, chunk};
}

// As few cells as still make a section, over the same area; chunks as large as there is room for.
DataSet tinyOne(DataSet set) {
  const std::size_t lons = set.name == "long" ? 200 : 30,
                    lats = std::min<std::size_t>(set.lats, 20);
  // Not beyond the poles.
  set.spacing =
      std::min(set.spacing * static_cast<double>(set.lons) / static_cast<double>(lons), 9.0);
  set.south = std::max(set.south, -85.5);
  set.lons = lons;
  set.lats = lats;
  set.levels = 6;
  set.steps = 3;
  const std::size_t room[] = {set.steps, set.levels, lats, lons};
  for (std::size_t n = 0; n < 4; ++n) set.chunk[n] = std::min(set.chunk[n], room[n]);
  return set;
}

}  // namespace

std::vector<DataSet> dataSets(bool tiny) {
  std::vector<DataSet> all = {
      regional("classic", 24, Format::Offset64, kNone),
      regional("blocks", 24, Format::Netcdf4, {1, 10, 100, 100}),
      regional("levels", 24, Format::Netcdf4, {1, 1, 400, 600}),
      regional("records", 3, Format::Records, kNone),
      regional("steps", 3, Format::Netcdf4, {1, 50, 400, 600}),
      regional("times", 3, Format::Netcdf4, {3, 1, 40, 40}),
      regional("small-chunks", 3, Format::Netcdf4, {1, 1, 10, 10}),
      {"global", 1440, 720, 75, 3, 0.125, -89.875, 0.25, Format::Netcdf4, {1, 1, 720, 1440}},
      {"long", 20000, 3, 200, 3, 100, 10, 0.01, Format::Offset64, kNone}};
  if (tiny) std::ranges::transform(all, all.begin(), tinyOne);
  return all;
}

}  // namespace bench
