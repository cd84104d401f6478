#include "unit/section/smallSet.h"

SmallSet::SmallSet(const std::string& path)
    : nc(path),
      time(nc.dim("time", 2)),
      depth(nc.dim("depth", 3)),
      lat(nc.dim("lat", 4)),
      lon(nc.dim("lon", 5)) {
  nc.text(add("time", NC_DOUBLE, {time}, {0, 1}), "units", "days since 1990-01-01");
  nc.text(add("depth", NC_FLOAT, {depth}, {0, 50, 200}), "units", "m");
  nc.text(add("lat", NC_FLOAT, {lat}, {-1, -0.5, 0, 0.5}), "units", "degrees_north");
  nc.text(add("lon", NC_FLOAT, {lon}, {10, 12, 14, 16, 18}), "units", "degrees_east");
}

std::vector<double> SmallSet::values(const std::vector<int>& dims) const {
  const auto length = [this](int dim) {
    return dim == time ? 2 : dim == depth ? 3 : dim == lat ? 4 : dim == lon ? 5 : 1;
  };
  const auto weight = [this](int dim) {
    return dim == time ? 1000 : dim == depth ? 100 : dim == lat ? 10 : dim == lon ? 1 : 0;
  };
  std::vector<double> list{0};
  for (const int dim : dims) {
    std::vector<double> longer;
    for (const double value : list) {
      for (int n = 1; n <= length(dim); ++n) longer.push_back(value + weight(dim) * n);
    }
    list = longer;
  }
  return list;
}

int SmallSet::add(const std::string& name, nc_type type, const std::vector<int>& dims) {
  return add(name, type, dims, values(dims));
}

int SmallSet::add(const std::string& name, nc_type type, const std::vector<int>& dims,
                  const std::vector<double>& list) {
  pending_.push_back({nc.var(name, type, dims), list});
  return pending_.back().var;
}

void SmallSet::finish() {
  for (const Pending& variable : pending_) nc.put(variable.var, variable.values);
  nc.close();
}
