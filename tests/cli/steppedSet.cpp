#include "steppedSet.h"

#include "support/NcMaker.h"

namespace cli_test {

void makeSteppedSet(const std::string& path, int steps) {
  support::NcMaker nc(path);
  const int t = nc.dim("time", static_cast<std::size_t>(steps));
  const int z = nc.dim("depth", 3), y = nc.dim("lat", 3), x = nc.dim("lon", 4);
  const int ts = nc.var("time", NC_DOUBLE, {t}), zs = nc.var("depth", NC_FLOAT, {z});
  const int ys = nc.var("lat", NC_FLOAT, {y}), xs = nc.var("lon", NC_FLOAT, {x});
  const int temp = nc.var("temp", NC_FLOAT, {t, z, y, x});
  nc.text(ts, "units", "days since 2000-01-01");
  nc.text(ys, "units", "degrees_north");
  nc.text(xs, "units", "degrees_east");
  std::vector<double> days, temps;
  for (int step = 1; step <= steps; ++step) {
    days.push_back(step);
    for (int cell = 0; cell < 36; ++cell) temps.push_back(step + cell / 3);
  }
  nc.put(ts, days);
  nc.put(zs, {0, 10, 30});
  nc.put(ys, {0, 1, 2});
  nc.put(xs, {0, 1, 2, 3});
  nc.put(temp, temps);
  nc.close();
}

}  // namespace cli_test
