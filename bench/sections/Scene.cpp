#include "Scene.h"

#include <stdexcept>

#include "colorkey/colorKey.h"
#include "netcdf/ncf.h"
#include "section/sectionPath.h"
#include "section/sectionValues.h"
#include "util/lastError.h"

namespace bench {

using ocxNetNc::ncf;

Path acrossPath() { return {{0.0005, 0.0005}, {0.95, 0.165}, {0.9995, 0.9995}}; }
Path straightPath() { return {{0.3, 0.2}, {0.7, 0.7}}; }
Path rowPath() { return {{0.01, 0.5}, {0.99, 0.5}}; }
Path columnPath() { return {{0.5, 0.01}, {0.5, 0.99}}; }

std::string text(Size size) {
  return std::to_string(size.width) + "x" + std::to_string(size.height);
}

Scene::Scene(const std::string& file, const Path& path, Size size)
    : file_(file), control_(pictures_.pictures(), desktop_) {
  // Before there is a section: nothing is drawn that belongs to an earlier scene.
  control_.Resize(size.width, size.height);
  util::LastError.clear();
  ModColor::NewColorKey();
  ModColor::bUseKey = 0;
  must(control_.NcFile(file));
  usePath(path);
  control_.SetCurrentTime(1);
  mustBeWell();
}

void Scene::usePath(const Path& path) {
  control_.NewSection();
  for (const Share& share : path) {
    const double x = static_cast<double>(ncf.lon_values(1)) +
                     share.x * static_cast<double>(ncf.dlon) * (ncf.nlon - 1);
    const double y = static_cast<double>(ncf.lat_values(1)) +
                     share.y * static_cast<double>(ncf.dlat) * (ncf.nlat - 1);
    control_.AddSection(static_cast<float>(x), static_cast<float>(y));
  }
  must(control_.EndSection());
}

void Scene::useColumns(int32_t columns) {
  const double row = 1.0 / (ncf.nlat - 1), cell = 1.0 / (ncf.nlon - 1);
  usePath({{0.1 * cell, 0.5 * row}, {columns * cell, 1.5 * row}});
}

void Scene::useKey(int32_t divisions) {
  control_.NewColorKey();
  const double step = 30.0 / divisions;
  for (int32_t n = 0; n < divisions; ++n) {
    const double low = n * step;
    control_.AddColorKey(static_cast<float>(low), static_cast<float>(low + step),
                         n * 7919 % 0x1000000);
  }
  control_.UseColorKey(true);
}

void Scene::must(int16_t result) const {
  if (result != 1) throw std::runtime_error(util::LastError);
}

void Scene::mustBeWell() const {
  if (!desktop_.message.empty()) throw std::runtime_error(desktop_.message);
  if (!util::LastError.empty()) throw std::runtime_error(util::LastError);
}

BareReads Scene::bareReads() const {
  std::vector<BareReads::Place> places;
  for (const KelvaneMain::Cell cell : KelvaneMain::section.column_cells) {
    places.emplace_back(static_cast<std::size_t>(cell.i - 1), static_cast<std::size_t>(cell.j - 1));
  }
  return BareReads(file_, std::move(places));
}

int32_t Scene::columns() const { return KelvaneMain::section_values.ncols(); }
int32_t Scene::levels() const { return KelvaneMain::section_values.nlevels(); }

}  // namespace bench
