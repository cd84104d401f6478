#include "targets/support/dataSets.h"

#include <cstdint>
#include <filesystem>
#include <limits>

#include "support/NcMaker.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"
#include "targets/support/files.h"

namespace fuzz {
namespace {

using support::NcMaker;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kEndless = std::numeric_limits<double>::infinity();

// What varies from one regular grid to the next. Longitudes and latitudes are 0, 1, 2 ..., so that
// most small numbers are places in it.
struct Grid {
  int mode = 0;
  nc_type type = NC_FLOAT;
  std::size_t times = 2, levels = 3, longitudes = 10, latitudes = 8;
  const char* timeUnits = "days since 2000-01-01";
  double depthStep = 10;
  double strange = 20;  // the value of every fifth cell
  double scale = 1, offset = 0;
  bool longitudeLast = true;
};

std::vector<double> steps(std::size_t count, double step) {
  std::vector<double> values;
  for (std::size_t i = 0; i < count; ++i) values.push_back(static_cast<double>(i) * step);
  return values;
}

void makeGrid(const std::string& path, const Grid& grid) {
  NcMaker nc(path, grid.mode);
  const int time = nc.dim("time", NC_UNLIMITED);
  const int depth = nc.dim("depth", grid.levels);
  const int lat = nc.dim("lat", grid.latitudes);
  const int lon = nc.dim("lon", grid.longitudes);
  const int times = nc.var("time", NC_DOUBLE, {time});
  nc.text(times, "units", grid.timeUnits);
  const int depths = nc.var("depth", NC_DOUBLE, {depth});
  const int lats = nc.var("lat", NC_FLOAT, {lat});
  nc.text(lats, "units", "degrees_north");
  const int lons = nc.var("lon", NC_DOUBLE, {lon});
  nc.text(lons, "units", "degrees_east");
  const int outer = grid.longitudeLast ? lat : lon, inner = grid.longitudeLast ? lon : lat;
  const int temp = nc.var("temp", grid.type, {time, depth, outer, inner});
  nc.text(temp, "units", "degC");
  nc.text(temp, "long_name", "temperature \"at\" <the> \xE9\x01 place");
  nc.number(temp, "scale_factor", NC_DOUBLE, {grid.scale});
  nc.number(temp, "add_offset", NC_DOUBLE, {grid.offset});
  const int flat = nc.var("a \"flat\" <one>", NC_SHORT, {depth, outer, inner});
  nc.var("letters", NC_CHAR, {time, depth, outer, inner});
  nc.number(NC_GLOBAL, "title", NC_DOUBLE, {1, 2});

  nc.put(depths, steps(grid.levels, grid.depthStep));
  nc.put(lats, steps(grid.latitudes, 1));
  nc.put(lons, steps(grid.longitudes, 1));
  const std::size_t rows = grid.longitudeLast ? grid.latitudes : grid.longitudes;
  const std::size_t columns = grid.longitudeLast ? grid.longitudes : grid.latitudes;
  const std::size_t cells = grid.levels * rows * columns;
  nc.put(flat, std::vector<double>(cells, 7));
  std::vector<double> values;
  for (std::size_t i = 0; i < cells; ++i) {
    values.push_back(i % 5 == 2 ? grid.strange : static_cast<double>(i % 13));
  }
  for (std::size_t t = 0; t < grid.times; ++t) {
    nc.putSlab(times, {t}, {1}, {static_cast<double>(t) * 400});
    nc.putSlab(temp, {t, 0, 0, 0}, {1, grid.levels, rows, columns}, values);
  }
  nc.close();
}

// Longitudes and latitudes of their own at every cell of i, j.
void makeCells(const std::string& path) {
  NcMaker nc(path);
  const int depth = nc.dim("depth", 3);
  const int j = nc.dim("jcell", 4);
  const int i = nc.dim("icell", 5);
  const int depths = nc.var("depth", NC_FLOAT, {depth});
  const int lons = nc.var("lon", NC_FLOAT, {j, i});
  nc.text(lons, "units", "degrees_east");
  const int lats = nc.var("lat", NC_FLOAT, {j, i});
  nc.text(lats, "units", "degrees_north");
  const int salt = nc.var("salt", NC_FLOAT, {depth, j, i});
  nc.put(depths, {0, 1, 2});
  nc.put(lons, steps(20, 0.5));
  nc.put(lats, steps(20, 0.25));
  nc.put(salt, steps(60, 0.1));
  nc.close();
}

std::vector<std::string> made;

// What tells a file that was written to from one that was not.
struct Stamp {
  std::uintmax_t size;
  std::filesystem::file_time_type time;
  bool operator==(const Stamp&) const = default;
};
Stamp stampOf(const std::string& name) {
  const std::filesystem::path path = support::pathOf(name);
  return {std::filesystem::file_size(path), std::filesystem::last_write_time(path)};
}
std::vector<Stamp> stamps;

std::string next() { return scratchFile("set" + std::to_string(made.size()) + ".nc"); }

void add(const Grid& grid) {
  makeGrid(next(), grid);
  made.push_back(next());
}

void makeAll() {
  support::makeTinySet(next());
  made.push_back(next());
  add({});
  add({.mode = NC_64BIT_OFFSET, .type = NC_DOUBLE, .strange = kNaN, .longitudeLast = false});
  add({.type = NC_DOUBLE, .timeUnits = "months since 1990-1-1", .strange = 1E35});
  add({.mode = NC_64BIT_DATA, .timeUnits = "fortnights", .depthStep = -5, .strange = -1E35});
  add({.type = NC_DOUBLE, .timeUnits = "seconds since 30-DEC-9999", .strange = 1E300});
  add({.type = NC_DOUBLE, .times = 1, .levels = 1, .strange = kEndless});
  add({.type = NC_SHORT, .times = 0, .scale = 1E37, .offset = -3E38});
  add({.type = NC_INT, .depthStep = kNaN, .strange = 2147483647, .scale = kNaN});
  add({.longitudes = 2, .latitudes = 1, .depthStep = 1E38});
  add({.times = 5, .levels = 30, .longitudes = 40, .latitudes = 40, .strange = 3.4E38});
  add({.type = NC_BYTE, .depthStep = 0, .strange = 4, .scale = 0});
  makeCells(next());
  made.push_back(next());
  writeScratch("set" + std::to_string(made.size()) + ".nc", "CDF\x01 but no more");
  made.push_back(next());
  writeScratch("set" + std::to_string(made.size()) + ".nc", "");
  made.push_back(next());
  for (const std::string& name : made) stamps.push_back(stampOf(name));
}

}  // namespace

const std::vector<std::string>& dataSetNames() {
  static const std::vector<std::string> names = [] {
    makeAll();
    std::vector<std::string> all = made;
    all.insert(all.end(), {"", scratchFile("missing.nc"), scratchFile(""), std::string(5000, 'x'),
                           std::string("zero\0byte", 9), "no such folder/a.nc"});
    return all;
  }();
  return names;
}

bool dataSetsAsMade() {
  for (std::size_t i = 0; i < made.size(); ++i) {
    if (!(stampOf(made[i]) == stamps[i])) return false;
  }
  return true;
}

}  // namespace fuzz
