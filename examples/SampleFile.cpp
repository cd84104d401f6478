#include "SampleFile.h"

#include <netcdf.h>

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <span>
#include <stdexcept>
#include <vector>

namespace sample {
namespace {

constexpr short kFill = -32768;

// How the numbers of a variable are stored: value = raw x scale + offset.
struct Packing {
  double scale, offset;

  short raw(double value) const { return static_cast<short>(std::lrint((value - offset) / scale)); }
};
constexpr Packing kTemperature = {0.001, 15.0};
constexpr Packing kSalinity = {0.001, 30.0};
constexpr Packing kSeaLevel = {0.0001, 0.0};

void must(int status, const std::string& what) {
  if (status != NC_NOERR) throw std::runtime_error(what + ": " + nc_strerror(status));
}

class Writer {
 public:
  Writer(const Sea& sea, const std::string& path, Format format)
      : sea_(sea), path_(path), format_(format) {
    const int mode = format == Format::Compressed ? NC_NETCDF4 : 0;
    must(nc_create(path.c_str(), NC_CLOBBER | mode, &ncid_), path_);
  }
  ~Writer() {
    if (ncid_ >= 0) nc_close(ncid_);
  }
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  void define();
  void writeCoordinates() const;
  void writeStep(int step) const;
  void close() {
    const int id = ncid_;
    ncid_ = -1;
    must(nc_close(id), path_);
  }

 private:
  int dimension(const char* name, std::size_t length) const {
    int id = -1;
    must(nc_def_dim(ncid_, name, length, &id), path_);
    return id;
  }
  void text(int var, const char* name, const std::string& value) const {
    must(nc_put_att_text(ncid_, var, name, value.size(), value.data()), path_);
  }
  int variable(const char* name, nc_type type, const std::vector<int>& dims, const char* longName,
               const char* units) const;
  int packed(const char* name, const std::vector<int>& dims, const char* longName,
             const char* units, const Packing& packing) const;

  const Sea& sea_;
  std::string path_;
  Format format_;
  int ncid_ = -1;
  int time_ = -1, depth_ = -1, lat_ = -1, lon_ = -1;
  int temp_ = -1, salt_ = -1, ssh_ = -1;
};

int Writer::variable(const char* name, nc_type type, const std::vector<int>& dims,
                     const char* longName, const char* units) const {
  int id = -1;
  must(nc_def_var(ncid_, name, type, static_cast<int>(dims.size()), dims.data(), &id), path_);
  text(id, "long_name", longName);
  text(id, "units", units);
  return id;
}

int Writer::packed(const char* name, const std::vector<int>& dims, const char* longName,
                   const char* units, const Packing& packing) const {
  const int id = variable(name, NC_SHORT, dims, longName, units);
  must(nc_put_att_double(ncid_, id, "scale_factor", NC_DOUBLE, 1, &packing.scale), path_);
  must(nc_put_att_double(ncid_, id, "add_offset", NC_DOUBLE, 1, &packing.offset), path_);
  must(nc_put_att_short(ncid_, id, "_FillValue", NC_SHORT, 1, &kFill), path_);
  if (format_ == Format::Compressed) {
    std::vector<std::size_t> chunk(dims.size(), 1);
    chunk[dims.size() - 2] = sea_.latitudes.size();
    chunk[dims.size() - 1] = sea_.longitudes.size();
    must(nc_def_var_chunking(ncid_, id, NC_CHUNKED, chunk.data()), path_);
    must(nc_def_var_deflate(ncid_, id, 1, 1, 4), path_);
  }
  return id;
}

void Writer::define() {
  const int time = dimension("time", NC_UNLIMITED);
  const int depth = dimension("depth", sea_.depths.size());
  const int lat = dimension("lat", sea_.latitudes.size());
  const int lon = dimension("lon", sea_.longitudes.size());
  time_ = variable("time", NC_DOUBLE, {time}, "time", "days since 2020-01-01 00:00:00");
  depth_ = variable("depth", NC_FLOAT, {depth}, "depth", "m");
  text(depth_, "positive", "down");
  lat_ = variable("lat", NC_FLOAT, {lat}, "latitude", "degrees_north");
  lon_ = variable("lon", NC_FLOAT, {lon}, "longitude", "degrees_east");
  temp_ = packed("temp", {time, depth, lat, lon}, "potential temperature", "degC", kTemperature);
  salt_ = packed("salt", {time, depth, lat, lon}, "practical salinity", "1e-3", kSalinity);
  ssh_ = packed("ssh", {time, lat, lon}, "sea surface height", "m", kSeaLevel);
  text(NC_GLOBAL, "title", sea_.title);
  text(NC_GLOBAL, "Conventions", "CF-1.8");
  text(NC_GLOBAL, "history", "computed by make_sample from closed formulas");
  text(NC_GLOBAL, "comment", "a made-up ocean: no measurement and no model run stands behind it");
  must(nc_enddef(ncid_), path_);
}

void Writer::writeCoordinates() const {
  must(nc_put_var_double(ncid_, lon_, sea_.longitudes.data()), path_);
  must(nc_put_var_double(ncid_, lat_, sea_.latitudes.data()), path_);
  must(nc_put_var_double(ncid_, depth_, sea_.depths.data()), path_);
}

void Writer::writeStep(int step) const {
  const std::size_t nlat = sea_.latitudes.size(), nlon = sea_.longitudes.size();
  const std::size_t plane = nlat * nlon, levels = sea_.depths.size();
  std::vector<short> temp(plane * levels, kFill), salt(temp), ssh(plane, kFill);
  for (std::size_t place = 0; place < plane; ++place) {
    const double lon = sea_.longitudes[place % nlon], lat = sea_.latitudes[place / nlon];
    const double bottom = sea_.bottomDepth(lon, lat);
    if (bottom <= 0.0) continue;
    std::size_t wet = 0;
    while (wet < levels && sea_.depths[wet] < bottom) ++wet;
    const WaterColumn water = sea_.water(lon, lat, step, std::span(sea_.depths).first(wet));
    ssh[place] = kSeaLevel.raw(water.seaLevel);
    for (std::size_t k = 0; k < wet; ++k) {
      temp[k * plane + place] = kTemperature.raw(water.temperature[k]);
      salt[k * plane + place] = kSalinity.raw(water.salinity[k]);
    }
  }
  const std::size_t record = static_cast<std::size_t>(step);
  const double day = midMonth(step);
  must(nc_put_var1_double(ncid_, time_, &record, &day), path_);
  const std::size_t start[] = {record, 0, 0, 0};
  const std::size_t count[] = {1, levels, nlat, nlon};
  must(nc_put_vara_short(ncid_, temp_, start, count, temp.data()), path_);
  must(nc_put_vara_short(ncid_, salt_, start, count, salt.data()), path_);
  const std::size_t flat[] = {1, nlat, nlon};
  must(nc_put_vara_short(ncid_, ssh_, start, flat, ssh.data()), path_);
}

}  // namespace

void writeSea(const Sea& sea, const std::string& path, Format format) {
  // Written beside and renamed, so that nobody ever finds half a data set.
  const std::string part = path + ".part";
  try {
    Writer writer(sea, part, format);
    writer.define();
    writer.writeCoordinates();
    for (int step = 0; step < kSteps; ++step) writer.writeStep(step);
    writer.close();
    std::filesystem::rename(part, path);
  } catch (...) {
    std::error_code ignored;
    std::filesystem::remove(part, ignored);
    throw;
  }
}

}  // namespace sample
