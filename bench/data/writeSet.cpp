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
    const int format = set.layout == Layout::Offset64 ? NC_64BIT_OFFSET : NC_NETCDF4;
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
  void defineTemperature(const std::vector<int>& dims);
  void writeCoordinates() const;
  void writeStep(std::size_t step);

  DataSet set_;
  SyntheticOcean ocean_;
  int ncid_ = -1;
  int time_ = -1, depth_ = -1, lat_ = -1, lon_ = -1, temp_ = -1;
};

void Writer::define() {
  const int time = dimension("time", set_.steps);
  const int depth = dimension("depth", set_.levels);
  const int lat = dimension("lat", set_.lats);
  const int lon = dimension("lon", set_.lons);
  time_ = variable("time", NC_DOUBLE, {time}, "days since 2020-01-01 00:00:00");
  depth_ = variable("depth", NC_FLOAT, {depth}, "m");
  must(nc_put_att_text(ncid_, depth_, "positive", 4, "down"));
  lat_ = variable("lat", NC_FLOAT, {lat}, "degrees_north");
  lon_ = variable("lon", NC_FLOAT, {lon}, "degrees_east");
  defineTemperature({time, depth, lat, lon});
  must(nc_enddef(ncid_));
}

void Writer::defineTemperature(const std::vector<int>& dims) {
  temp_ = variable("temp", NC_SHORT, dims, "degC");
  const double scale = SyntheticOcean::kScale, offset = SyntheticOcean::kOffset;
  must(nc_put_att_double(ncid_, temp_, "scale_factor", NC_DOUBLE, 1, &scale));
  must(nc_put_att_double(ncid_, temp_, "add_offset", NC_DOUBLE, 1, &offset));
  const short fill = SyntheticOcean::kFill;
  must(nc_put_att_short(ncid_, temp_, "_FillValue", NC_SHORT, 1, &fill));
  if (set_.layout == Layout::Offset64) return;
  std::vector<std::size_t> chunk = {1, 1, set_.lats, set_.lons};
  if (set_.layout == Layout::Blocks) chunk = {1, set_.blockLevels, set_.blockSide, set_.blockSide};
  must(nc_def_var_chunking(ncid_, temp_, NC_CHUNKED, chunk.data()));
  must(nc_def_var_deflate(ncid_, temp_, 1, 1, 1));
  // A row of blocks is filled level by level: each must stay in the cache until it is full.
  constexpr std::size_t kCache = 64 << 20;
  must(nc_set_var_chunk_cache(ncid_, temp_, kCache, 10007, 0.75F));
}

void Writer::writeCoordinates() const {
  must(nc_put_var_float(ncid_, lon_, ocean_.longitudes().data()));
  must(nc_put_var_float(ncid_, lat_, ocean_.latitudes().data()));
  must(nc_put_var_float(ncid_, depth_, ocean_.depths().data()));
  std::vector<double> days;
  for (std::size_t step = 0; step < set_.steps; ++step) days.push_back(static_cast<double>(step));
  must(nc_put_var_double(ncid_, time_, days.data()));
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
