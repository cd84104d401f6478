#include "writeSet.h"

#include <netcdf.h>

#include <filesystem>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "syntheticOcean.h"

namespace bench {
namespace {

void must(int status) {
  if (status != NC_NOERR) throw std::runtime_error(nc_strerror(status));
}

class Writer {
 public:
  Writer(const DataSet& set, const std::string& path) : set_(set), ocean_(set) {
    const int format = set.format == Format::Netcdf4 ? NC_NETCDF4 : NC_64BIT_OFFSET;
    must(nc_create(path.c_str(), NC_CLOBBER | format, &ncid_));
  }
  ~Writer() {
    if (ncid_ >= 0) nc_close(ncid_);
  }
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  void write() {
    define();
    writeCoordinates();
    for (std::size_t step = 0; step < set_.steps; ++step) writeStep(step);
    const int id = ncid_;
    ncid_ = -1;
    must(nc_close(id));
  }

 private:
  int dimension(const char* name, std::size_t length) const {
    int id = -1;
    must(nc_def_dim(ncid_, name, length, &id));
    return id;
  }
  int variable(const char* name, nc_type type, const std::vector<int>& dims,
               std::string_view units) const {
    int id = -1;
    must(nc_def_var(ncid_, name, type, static_cast<int>(dims.size()), dims.data(), &id));
    must(nc_put_att_text(ncid_, id, "units", units.size(), units.data()));
    return id;
  }
  void define();
  int temperature(const char* name, const std::vector<int>& dims) const;
  void writeCoordinates() const;
  void writeStep(std::size_t step);

  DataSet set_;
  SyntheticOcean ocean_;
  int ncid_ = -1;
  int time_ = -1, depth_ = -1, lat_ = -1, lon_ = -1, temp_ = -1;
};

void Writer::define() {
  const bool records = set_.format == Format::Records;
  const int time = dimension("time", records ? NC_UNLIMITED : set_.steps);
  const int depth = dimension("depth", set_.levels);
  const int lat = dimension("lat", set_.lats);
  const int lon = dimension("lon", set_.lons);
  time_ = variable("time", NC_DOUBLE, {time}, "days since 2020-01-01 00:00:00");
  depth_ = variable("depth", NC_FLOAT, {depth}, "m");
  must(nc_put_att_text(ncid_, depth_, "positive", 4, "down"));
  lat_ = variable("lat", NC_FLOAT, {lat}, "degrees_north");
  lon_ = variable("lon", NC_FLOAT, {lon}, "degrees_east");
  temp_ = temperature("temp", {time, depth, lat, lon});
  if (records) temperature("other", {time, depth, lat, lon});
  must(nc_enddef(ncid_));
}

int Writer::temperature(const char* name, const std::vector<int>& dims) const {
  const int id = variable(name, NC_SHORT, dims, "degC");
  const double scale = SyntheticOcean::kScale, offset = SyntheticOcean::kOffset;
  must(nc_put_att_double(ncid_, id, "scale_factor", NC_DOUBLE, 1, &scale));
  must(nc_put_att_double(ncid_, id, "add_offset", NC_DOUBLE, 1, &offset));
  const short fill = SyntheticOcean::kFill;
  must(nc_put_att_short(ncid_, id, "_FillValue", NC_SHORT, 1, &fill));
  if (set_.format != Format::Netcdf4) return id;
  must(nc_def_var_chunking(ncid_, id, NC_CHUNKED, set_.chunk.data()));
  must(nc_def_var_deflate(ncid_, id, 1, 1, 1));
  // Values come level by level: each chunk must stay in the cache until it is full.
  constexpr std::size_t kCache = 256 << 20;
  must(nc_set_var_chunk_cache(ncid_, id, kCache, 400009, 0.75F));
  return id;
}

void Writer::writeCoordinates() const {
  must(nc_put_var_float(ncid_, lon_, ocean_.longitudes().data()));
  must(nc_put_var_float(ncid_, lat_, ocean_.latitudes().data()));
  must(nc_put_var_float(ncid_, depth_, ocean_.depths().data()));
  std::vector<double> days;
  for (std::size_t step = 0; step < set_.steps; ++step) days.push_back(static_cast<double>(step));
  const std::size_t first = 0;
  must(nc_put_vara_double(ncid_, time_, &first, &set_.steps, days.data()));
}

void Writer::writeStep(std::size_t step) {
  ocean_.go(step);
  std::vector<int16_t> raw;
  for (std::size_t k = 0; k < set_.levels; ++k) {
    ocean_.level(k, raw);
    const std::size_t start[] = {step, k, 0, 0};
    const std::size_t count[] = {1, 1, set_.lats, set_.lons};
    must(nc_put_vara_short(ncid_, temp_, start, count, raw.data()));
  }
}

}  // namespace

void writeSet(const DataSet& set, const std::string& path) {
  // Written beside and renamed: a run that was interrupted leaves no half data set to measure.
  const std::string part = path + ".part";
  try {
    Writer(set, part).write();
    std::filesystem::rename(part, path);
  } catch (const std::exception& error) {
    std::error_code ignored;
    std::filesystem::remove(part, ignored);
    throw std::runtime_error(path + ": " + error.what());
  }
}

}  // namespace bench
