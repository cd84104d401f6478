#include "support/NcMaker.h"

#include <stdexcept>

namespace support {
namespace {

void must(int status) {
  if (status != NC_NOERR) throw std::runtime_error(nc_strerror(status));
}

}  // namespace

NcMaker::NcMaker(const std::string& path, int mode) {
  must(nc_create(path.c_str(), NC_CLOBBER | mode, &ncid_));
}

NcMaker::~NcMaker() {
  if (ncid_ >= 0) nc_close(ncid_);
}

int NcMaker::dim(const std::string& name, std::size_t length) {
  int id = -1;
  must(nc_def_dim(ncid_, name.c_str(), length, &id));
  return id;
}

int NcMaker::var(const std::string& name, nc_type type, const std::vector<int>& dims) {
  int id = -1;
  must(nc_def_var(ncid_, name.c_str(), type, static_cast<int>(dims.size()), dims.data(), &id));
  return id;
}

void NcMaker::text(int var, const std::string& name, const std::string& value) {
  must(nc_put_att_text(ncid_, var, name.c_str(), value.size(), value.data()));
}

void NcMaker::number(int var, const std::string& name, nc_type type,
                     const std::vector<double>& values) {
  must(nc_put_att_double(ncid_, var, name.c_str(), type, values.size(), values.data()));
}

void NcMaker::put(int var, const std::vector<double>& values) {
  endDefinitions();
  must(nc_put_var_double(ncid_, var, values.data()));
}

void NcMaker::putSlab(int var, const std::vector<std::size_t>& start,
                      const std::vector<std::size_t>& count, const std::vector<double>& values) {
  endDefinitions();
  must(nc_put_vara_double(ncid_, var, start.data(), count.data(), values.data()));
}

void NcMaker::close() {
  endDefinitions();
  const int id = ncid_;
  ncid_ = -1;
  must(nc_close(id));
}

void NcMaker::endDefinitions() {
  if (!defining_) return;
  defining_ = false;
  must(nc_enddef(ncid_));
}

}  // namespace support
