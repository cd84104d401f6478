#include "netcdf/ncf.h"

#include "util/RuntimeError.h"

namespace ocxNetNc {

Ncf ncf;
std::string DataSetName;

int32_t NcVar::dimensionAt(int32_t dimId) const {
  for (int32_t position = 0; position < NDims; ++position) {
    if (DimId[static_cast<std::size_t>(position)] == dimId) return position;
  }
  return -1;
}

double levelDepth(int32_t k) {
  if (k < 0 || k > ncf.nlevels || static_cast<std::size_t>(k) >= ncf.level_values.size()) {
    util::raise(util::kSubscript);
  }
  return ncf.level_values[static_cast<std::size_t>(k)];
}

}  // namespace ocxNetNc
