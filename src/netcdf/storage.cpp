#include "netcdf/storage.h"

#include <algorithm>
#include <span>

#include "netcdf/NetCDF.h"
#include "netcdf/typeBytes.h"

namespace NetCDF {
namespace {

bool findShape(int ncid, int varid, Storage& storage) {
  std::array<int, ocxNetNc::kDimensionLimit> dimIds{};
  if (beneath.nc_inq_vardimid(ncid, varid, dimIds.data()) != NC_NOERR) return false;
  for (std::size_t d = 0; d < storage.rank; ++d) {
    std::array<char, NC_MAX_NAME + 1> name{};
    if (beneath.nc_inq_dim(ncid, dimIds[d], name.data(), &storage.shape[d]) != NC_NOERR) {
      return false;
    }
  }
  return true;
}

bool findLayout(int ncid, int varid, Storage& storage) {
  int format = 0;
  int mode = 0;
  if (beneath.nc_inq_format_extended(ncid, &format, &mode) != NC_NOERR) return false;
  if (format == NC_FORMATX_NC3 || format == NC_FORMATX_DAP2) {
    storage.layout = format == NC_FORMATX_NC3 ? Layout::Classic : Layout::Remote;
    return true;
  }
  if (format != NC_FORMATX_NC_HDF5) return false;
  int kind = NC_CONTIGUOUS;
  if (beneath.nc_inq_var_chunking(ncid, varid, &kind, storage.chunk.data()) != NC_NOERR) {
    return false;
  }
  storage.layout = kind == NC_CHUNKED ? Layout::Chunked : Layout::Contiguous;
  if (kind != NC_CHUNKED) return kind == NC_CONTIGUOUS || kind == NC_COMPACT;
  const auto lengths = std::span(storage.chunk).first(storage.rank);
  return std::ranges::all_of(lengths, [](std::size_t length) { return length > 0; });
}

}  // namespace

double Storage::chunkBytes() const {
  auto bytes = static_cast<double>(valueBytes);
  for (std::size_t d = 0; d < rank; ++d) bytes *= static_cast<double>(chunk[d]);
  return bytes;
}

std::optional<Storage> storageOf(int ncid, int varid, std::size_t rank) {
  Storage storage;
  storage.rank = rank;
  int found = -1;
  if (beneath.nc_inq_varndims(ncid, varid, &found) != NC_NOERR || found < 0 ||
      static_cast<std::size_t>(found) != rank) {
    return std::nullopt;
  }
  nc_type type = NC_NAT;
  if (beneath.nc_inq_vartype(ncid, varid, &type) != NC_NOERR) return std::nullopt;
  storage.valueBytes = type == NC_CHAR ? 0 : static_cast<std::size_t>(bytesOfType(type));
  if (storage.valueBytes == 0 || !findShape(ncid, varid, storage) ||
      !findLayout(ncid, varid, storage)) {
    return std::nullopt;
  }
  return storage;
}

void limitChunkCache(int ncid, int varid, std::size_t least, std::size_t most) {
  std::size_t bytes = 0;
  std::size_t slots = 0;
  float preemption = 0;
  if (beneath.nc_get_var_chunk_cache(ncid, varid, &bytes, &slots, &preemption) != NC_NOERR) return;
  const std::size_t wanted = std::clamp(bytes, std::min(least, most), most);
  // Setting it closes the variable and opens it again.
  if (wanted != bytes) beneath.nc_set_var_chunk_cache(ncid, varid, wanted, slots, preemption);
}

}  // namespace NetCDF
