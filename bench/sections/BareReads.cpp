#include "BareReads.h"

#include <netcdf.h>

#include <algorithm>
#include <array>
#include <stdexcept>

namespace bench {
namespace {

void must(int status) {
  if (status != NC_NOERR) throw std::runtime_error(nc_strerror(status));
}

class OpenFile {
 public:
  explicit OpenFile(const std::string& name) { must(nc_open(name.c_str(), NC_NOWRITE, &id_)); }
  ~OpenFile() { nc_close(id_); }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  int id() const { return id_; }

  int variable(const char* name) const {
    int id = -1;
    must(nc_inq_varid(id_, name, &id));
    return id;
  }
  std::size_t length(const char* dimension) const {
    int id = -1;
    std::size_t length = 0;
    must(nc_inq_dimid(id_, dimension, &id));
    must(nc_inq_dimlen(id_, id, &length));
    return length;
  }

 private:
  int id_ = -1;
};

// Room for all chunks of one time step, where the variable is in chunks: a path may meet them all,
// and comes back to most.
void holdAllChunks(int file, int variable) {
  int storage = NC_CONTIGUOUS;
  std::array<std::size_t, NC_MAX_VAR_DIMS> chunk{};
  if (nc_inq_var_chunking(file, variable, &storage, chunk.data()) != NC_NOERR) return;
  if (storage != NC_CHUNKED) return;
  constexpr std::size_t kRoom = std::size_t{512} << 20;
  must(nc_set_var_chunk_cache(file, variable, kRoom, 400009, 0.75F));
}

void readAttributes(int file, int variable, int count) {
  std::vector<char> value;
  for (int n = 0; n < count; ++n) {
    std::array<char, NC_MAX_NAME + 1> name{};
    nc_type type = NC_NAT;
    std::size_t length = 0;
    must(nc_inq_attname(file, variable, n, name.data()));
    must(nc_inq_att(file, variable, name.data(), &type, &length));
    value.resize(std::max<std::size_t>(length * 8, 8));
    must(nc_get_att(file, variable, name.data(), value.data()));
  }
}

}  // namespace

BareReads::BareReads(std::string file, std::vector<Place> columns)
    : file_(std::move(file)), columns_(std::move(columns)) {}

void BareReads::columnByColumn(std::size_t step, Cache cache) {
  const OpenFile file(file_);
  const int temp = file.variable("temp");
  const std::size_t levels = file.length("depth");
  if (cache == Cache::Sufficient) holdAllChunks(file.id(), temp);
  values_.resize(levels * columns_.size());
  int16_t* place = values_.data();
  for (const auto& [lon, lat] : columns_) {
    const std::size_t start[] = {step, 0, lat, lon};
    const std::size_t count[] = {1, levels, 1, 1};
    must(nc_get_vara_short(file.id(), temp, start, count, place));
    place += levels;
  }
}

void BareReads::boundingBox(std::size_t step) {
  const OpenFile file(file_);
  const int temp = file.variable("temp");
  const std::size_t levels = file.length("depth");
  Place low = columns_.front(), high = low;
  for (const auto& [lon, lat] : columns_) {
    low = {std::min(low.first, lon), std::min(low.second, lat)};
    high = {std::max(high.first, lon), std::max(high.second, lat)};
  }
  const std::size_t width = high.first - low.first + 1, height = high.second - low.second + 1;
  const std::size_t start[] = {step, 0, low.second, low.first};
  const std::size_t count[] = {1, levels, height, width};
  box_.resize(levels * height * width);
  must(nc_get_vara_short(file.id(), temp, start, count, box_.data()));
  values_.resize(levels * columns_.size());
  int16_t* place = values_.data();
  for (const auto& [lon, lat] : columns_) {
    const std::size_t at = (lat - low.second) * width + lon - low.first;
    for (std::size_t k = 0; k < levels; ++k) *place++ = box_[k * width * height + at];
  }
}

void BareReads::catalogue() {
  const OpenFile file(file_);
  int dims = 0, vars = 0, atts = 0, unlimited = -1;
  must(nc_inq(file.id(), &dims, &vars, &atts, &unlimited));
  for (int dim = 0; dim < dims; ++dim) {
    std::array<char, NC_MAX_NAME + 1> name{};
    std::size_t length = 0;
    must(nc_inq_dim(file.id(), dim, name.data(), &length));
  }
  readAttributes(file.id(), NC_GLOBAL, atts);
  for (int var = 0; var < vars; ++var) {
    std::array<char, NC_MAX_NAME + 1> name{};
    nc_type type = NC_NAT;
    int rank = 0, count = 0;
    std::array<int, NC_MAX_VAR_DIMS> ids{};
    must(nc_inq_var(file.id(), var, name.data(), &type, &rank, ids.data(), &count));
    readAttributes(file.id(), var, count);
    if (rank != 1) continue;
    std::size_t length = 0;
    must(nc_inq_dimlen(file.id(), ids[0], &length));
    std::vector<double> coordinate(length);
    must(nc_get_var_double(file.id(), var, coordinate.data()));
  }
}

}  // namespace bench
