#include "MadeSet.h"

#include <map>

namespace diagnosis_test {

using support::NcMaker;

void MadeSet::make(const std::string& path) const {
  NcMaker nc(path, mode);
  std::map<char, int> dims = {{'t', nc.dim(timeName, unlimitedTime ? NC_UNLIMITED : times.size())},
                              {'z', nc.dim(levelName, levels.size())},
                              {'y', nc.dim(latName, lats.size())},
                              {'x', nc.dim(lonName, lons.size())}};
  const int t = nc.var(timeName, timeType, {dims['t']}),
            z = nc.var(levelName, levelType, {dims['z']});
  const int y = nc.var(latName, NC_FLOAT, {dims['y']}), x = nc.var(lonName, lonType, {dims['x']});
  const auto units = [&](int variable, const std::string& text) {
    if (!text.empty()) nc.text(variable, "units", text);
  };
  units(t, timeUnits);
  units(z, levelUnits);
  units(y, latUnits);
  units(x, lonUnits);
  int item = -1;
  if (!order.empty()) {
    std::vector<int> shape;
    for (const char letter : order) {
      if (letter == 'w') dims['w'] = nc.dim("w" + std::to_string(shape.size()), 2);
      shape.push_back(dims[letter]);
    }
    item = nc.var("q", itemType, shape);
  }
  if (more) more(nc, item);
  if (timeType != NC_CHAR && !times.empty()) nc.putSlab(t, {0}, {times.size()}, times);
  nc.put(z, levels);
  nc.put(y, lats);
  nc.put(x, lons);
}

}  // namespace diagnosis_test
