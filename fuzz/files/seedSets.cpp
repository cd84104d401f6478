#include "seedSets.h"

#include <array>
#include <cstdint>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "checksums.h"
#include "oddSets.h"
#include "platform/files.h"
#include "rising.h"
#include "support/NcMaker.h"

namespace fuzz {
namespace {

using support::NcMaker;

void must(int status) {
  if (status != NC_NOERR) throw std::runtime_error(nc_strerror(status));
}

// Axes and one variable on them, as a model writes them: the shape that all the sets share.
struct Model {
  static constexpr std::size_t kTimes = 2, kLevels = 3, kRows = 4, kColumns = 5;

  // timeLength: NC_UNLIMITED for records.
  Model(NcMaker& file, std::size_t timeLength, nc_type axisType) : nc(file) {
    time = nc.dim("time", timeLength);
    level = nc.dim("depth", kLevels);
    lat = nc.dim("lat", kRows);
    lon = nc.dim("lon", kColumns);
    timeVar = nc.var("time", NC_DOUBLE, {time});
    nc.text(timeVar, "units", "hours since 1990-01-01 00:00:00");
    levelVar = nc.var("depth", axisType, {level});
    nc.text(levelVar, "units", "m");
    latVar = nc.var("lat", axisType, {lat});
    nc.text(latVar, "units", "degrees_north");
    lonVar = nc.var("lon", axisType, {lon});
    nc.text(lonVar, "units", "degrees_east");
    nc.text(NC_GLOBAL, "title", "little run");
  }
  std::vector<int> shape() const { return {time, level, lat, lon}; }

  int packed() {
    const int id = nc.var("temp", NC_SHORT, shape());
    nc.text(id, "long_name", "temperature");
    nc.text(id, "units", "degC");
    nc.number(id, "scale_factor", NC_FLOAT, {0.0078125});
    nc.number(id, "add_offset", NC_DOUBLE, {10});
    nc.number(id, "_FillValue", NC_SHORT, {-32768});
    nc.number(id, "valid_range", NC_SHORT, {-9000, 9000});
    return id;
  }

  void putAxes() {
    nc.putSlab(timeVar, {0}, {kTimes}, {36, 60});
    nc.put(levelVar, {0, 50, 200});
    nc.put(latVar, rising(kRows, -1, 0.5));
    nc.put(lonVar, rising(kColumns, 352, 2));
  }
  void putValues(int variable) {
    nc.putSlab(variable, {0, 0, 0, 0}, {kTimes, kLevels, kRows, kColumns},
               rising(kTimes * kLevels * kRows * kColumns, 3, 7));
  }

  NcMaker& nc;
  int time, level, lat, lon;
  int timeVar, levelVar, latVar, lonVar;
};

// Records of several variables.
void makeRecords(const std::string& path, int mode) {
  NcMaker nc(path, mode);
  Model model(nc, NC_UNLIMITED, NC_FLOAT);
  const int packed = model.packed();
  const int flat = nc.var("zeta", NC_FLOAT, {model.time, model.lat, model.lon});
  model.putAxes();
  model.putValues(packed);
  nc.putSlab(flat, {0, 0, 0}, {Model::kTimes, Model::kRows, Model::kColumns},
             rising(Model::kTimes * Model::kRows * Model::kColumns, 0, 0.25));
  nc.close();
}

// No records, and a variable of every classic type.
void makeFixed(const std::string& path, int mode) {
  NcMaker nc(path, mode);
  Model model(nc, Model::kTimes, NC_DOUBLE);
  std::vector<int> drawn;
  for (const auto& [name, type] :
       {std::pair{"bytes", NC_BYTE}, std::pair{"shorts", NC_SHORT}, std::pair{"ints", NC_INT},
        std::pair{"floats", NC_FLOAT}, std::pair{"doubles", NC_DOUBLE}}) {
    drawn.push_back(nc.var(name, type, model.shape()));
  }
  nc.var("letters", NC_CHAR, {model.lat, model.lon});
  const int scalar = nc.var("scalar", NC_INT, {});
  nc.number(scalar, "numbers", NC_INT, {1, 2, 3});
  nc.number(scalar, "none", NC_INT, {});
  nc.text(scalar, "blank", "");
  model.putAxes();
  for (const int id : drawn) {
    nc.put(id, rising(Model::kTimes * Model::kLevels * Model::kRows * Model::kColumns, 0, 1));
  }
  nc.close();
}

// One record variable, whose records are not padded, on a grid of cells.
void makeCells(const std::string& path, int mode) {
  NcMaker nc(path, mode);
  const int time = nc.dim("time", NC_UNLIMITED);
  const int level = nc.dim("sigma", 3);
  const int j = nc.dim("jcell", 3);
  const int i = nc.dim("icell", 3);
  const int levelVar = nc.var("sigma", NC_FLOAT, {level});
  const int lat = nc.var("lat", NC_FLOAT, {j, i});
  nc.text(lat, "units", "degrees_north");
  const int lon = nc.var("lon", NC_FLOAT, {j, i});
  nc.text(lon, "units", "degrees_east");
  const int bytes = nc.var("ice", NC_BYTE, {time, level, j, i});
  nc.put(levelVar, {0, 0.5, 1});
  nc.put(lat, rising(9, 60, 1));
  nc.put(lon, rising(9, 10, 1));
  nc.putSlab(bytes, {0, 0, 0, 0}, {3, 3, 3, 3}, rising(81, 0, 1));
  nc.close();
}

// Compressed chunks that grow in two directions.
void makeChunks(const std::string& path, int mode) {
  NcMaker nc(path, mode);
  Model model(nc, NC_UNLIMITED, NC_FLOAT);
  const int packed = model.packed();
  const std::array<std::size_t, 4> chunk = {1, 2, 2, 3};
  must(nc_def_var_chunking(nc.id(), packed, NC_CHUNKED, chunk.data()));
  must(nc_def_var_deflate(nc.id(), packed, 1, 1, 4));
  const int ensemble = nc.dim("member", NC_UNLIMITED);
  const int spread = nc.var("spread", NC_DOUBLE, {ensemble, model.time, model.level});
  must(nc_def_var_fletcher32(nc.id(), spread, NC_FLETCHER32));
  model.putAxes();
  model.putValues(packed);
  nc.putSlab(spread, {0, 0, 0}, {2, Model::kTimes, Model::kLevels}, rising(12, 0, 1));
  nc.close();
}

// Types of the user's own, of every class, and variables of theirs.
void defineTypes(NcMaker& nc, const Model& model) {
  nc_type compound = 0;
  must(nc_def_compound(nc.id(), 16, "place", &compound));
  must(nc_insert_compound(nc.id(), compound, "lon", 0, NC_DOUBLE));
  must(nc_insert_compound(nc.id(), compound, "level", 8, NC_INT));
  const int side = 2;
  must(nc_insert_array_compound(nc.id(), compound, "box", 12, NC_SHORT, 1, &side));
  nc_type kind = 0;
  must(nc_def_enum(nc.id(), NC_BYTE, "kind", &kind));
  const signed char land = 1;
  must(nc_insert_enum(nc.id(), kind, "land", &land));
  nc_type list = 0;
  must(nc_def_vlen(nc.id(), "list", NC_INT, &list));
  nc_type blob = 0;
  must(nc_def_opaque(nc.id(), 7, "blob", &blob));
  nc.var("places", compound, {model.lon});
  nc.var("kinds", kind, {model.lat, model.lon});
  nc.var("lists", list, {model.lat});
  nc.var("blobs", blob, {model.lat});
  nc.var("names", NC_STRING, {model.lon});
}

// Groups in groups, more attributes than fit into a header, strings, big integers.
void makeGroups(const std::string& path, int mode) {
  NcMaker nc(path, mode);
  Model model(nc, Model::kTimes, NC_FLOAT);
  const int packed = model.packed();
  for (char letter = 'a'; letter < 'e'; ++letter) {
    nc.number(packed, std::string("note_") + letter, NC_INT, {1, 2, 3});
    for (const char second : {'x', 'y', 'z'}) {
      nc.text(NC_GLOBAL, std::string("remark_") + letter + second, "one of many");
    }
  }
  defineTypes(nc, model);
  int group = 0, inner = 0, flow = 0;
  must(nc_def_grp(nc.id(), "run", &group));
  must(nc_def_grp(group, "inner", &inner));
  int width = 0;
  must(nc_def_dim(inner, "width", 3, &width));
  const std::array<int, 2> shape = {model.lat, width};
  must(nc_def_var(inner, "flow", NC_UINT64, 2, shape.data(), &flow));
  const char* names[] = {"first", "second"};
  must(nc_put_att_string(inner, flow, "names", 2, names));
  must(nc_put_att_string(group, NC_GLOBAL, "names", 2, names));
  model.putAxes();
  model.putValues(packed);
  const char* words[] = {"west", "", "a", "longer word", "east"};
  int text = 0;
  must(nc_inq_varid(nc.id(), "names", &text));
  must(nc_put_var_string(nc.id(), text, words));
  int lists = 0;
  must(nc_inq_varid(nc.id(), "lists", &lists));
  std::array<int, 3> numbers = {1, 2, 3};
  const std::array<nc_vlen_t, Model::kRows> rows = {
      nc_vlen_t{3, numbers.data()}, nc_vlen_t{0, nullptr}, nc_vlen_t{1, numbers.data()},
      nc_vlen_t{2, numbers.data()}};
  must(nc_put_var(nc.id(), lists, rows.data()));
  nc.close();
}

// Makes the file the same whenever it is made.
void forgetTimes(const std::filesystem::path& path) {
  std::string bytes = platform::readWholeFile(path.string(), std::size_t{1} << 24);
  clearTimes(bytes);
  std::ofstream(path, std::ios::binary) << bytes;
}

}  // namespace

void makeSeedSets(const std::filesystem::path& folder) {
  const struct {
    const char* name;
    int mode;
  } formats[] = {{"classic", 0}, {"offset64", NC_64BIT_OFFSET}, {"data64", NC_64BIT_DATA}};
  for (const auto& [name, mode] : formats) {
    const std::filesystem::path place = folder / name;
    create_directories(place);
    makeRecords((place / "records.nc").string(), mode);
    makeFixed((place / "fixed.nc").string(), mode);
    makeCells((place / "cells.nc").string(), mode);
  }
  const std::filesystem::path place = folder / "netcdf4";
  create_directories(place);
  makeRecords((place / "records.nc").string(), NC_NETCDF4 | NC_CLASSIC_MODEL);
  makeFixed((place / "fixed.nc").string(), NC_NETCDF4);
  makeChunks((place / "chunks.nc").string(), NC_NETCDF4);
  makeGroups((place / "groups.nc").string(), NC_NETCDF4);
  create_directories(folder / "odd");
  makeOddSets(folder / "odd");
  for (const auto& made : {place, folder / "odd"}) {
    for (const auto& entry : std::filesystem::directory_iterator(made)) forgetTimes(entry.path());
  }
}

}  // namespace fuzz
