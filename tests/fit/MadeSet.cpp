#include "MadeSet.h"

#include <map>

namespace fit_test {

MadeSet::MadeSet()
    : time{"time", "days since 2000-01-01", {0, 1}},
      level{"depth", "m", {0, 10, 30}, NC_FLOAT},
      lat{"lat", "degrees_north", {-1, 0, 1, 2}, NC_FLOAT},
      lon{"lon", "degrees_east", {10, 11, 12, 13, 14}, NC_FLOAT} {}

void MadeSet::make(const std::string& path) const {
  support::NcMaker nc(path, mode);
  const std::map<char, const MadeAxis*> axes = {
      {'t', &time}, {'z', &level}, {'y', &lat}, {'x', &lon}};
  std::map<char, int> dims;
  std::vector<std::pair<int, const MadeAxis*>> coordinates;
  for (const auto& [letter, axis] : axes) {
    if (!axis->withoutDimension) dims[letter] = nc.dim(axis->dimName(), axis->values.size());
  }
  for (const auto& [letter, axis] : axes) {
    if (axis->withoutVariable) continue;
    const bool scalar = axis->withoutDimension;
    const int var = nc.var(axis->name, axis->type,
                           scalar ? std::vector<int>{} : std::vector<int>{dims[letter]});
    if (!axis->units.empty()) nc.text(var, "units", axis->units);
    for (const auto& [name, text] : axis->attributes) nc.text(var, name, text);
    coordinates.emplace_back(var, axis);
  }
  std::vector<int> dimsOfTemp;
  std::map<char, std::size_t> length = {{'t', 1}, {'z', 1}, {'y', 1}, {'x', 1}};
  for (const char letter : order) {
    dimsOfTemp.push_back(dims.at(letter));
    length[letter] = axes.at(letter)->values.size();
  }
  const int temp = nc.var("temp", type, dimsOfTemp);
  if (more) more(nc, temp);
  for (const auto& [var, axis] : coordinates) nc.put(var, axis->values);
  std::vector<double> values;
  std::map<char, std::size_t> at = {{'t', 0}, {'z', 0}, {'y', 0}, {'x', 0}};
  const std::function<void(std::size_t)> walk = [&](std::size_t depth) {
    if (depth == order.size()) {
      values.push_back((value ? value : plainValue)(at['t'], at['z'], at['y'], at['x']));
      return;
    }
    const char letter = order[depth];
    for (at[letter] = 0; at[letter] < length[letter]; ++at[letter]) walk(depth + 1);
    at[letter] = 0;
  };
  walk(0);
  nc.put(temp, values);
  if (moreValues) moreValues(nc);
  nc.close();
}

}  // namespace fit_test
