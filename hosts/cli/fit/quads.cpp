#include "fit/quads.h"

#include <algorithm>
#include <cmath>

#include "fit/SphereTree.h"

namespace cli::fit {
namespace {

constexpr double kRadian = 3.14159265358979323846 / 180.0;

struct Flat {
  double x = 0, y = 0;
};

// Corners as they are seen from a place in the middle of the picture. Degrees do for this, but not
// near the poles, where meridians meet: there it is the tangent plane.
Flat seen(double lon, double lat, double cornerLon, double cornerLat) {
  constexpr double kPolar = 75.0;
  if (std::fabs(lat) < kPolar && std::fabs(cornerLat) < 85.0) {
    return {std::remainder(cornerLon - lon, 360.0), cornerLat - lat};
  }
  const Vector3 corner = onSphere(cornerLon, cornerLat), middle = onSphere(lon, lat);
  const double up = middle[0] * corner[0] + middle[1] * corner[1] + middle[2] * corner[2];
  const double sinLon = std::sin(lon * kRadian), cosLon = std::cos(lon * kRadian);
  const double sinLat = std::sin(lat * kRadian), cosLat = std::cos(lat * kRadian);
  const double east = cosLon * corner[1] - sinLon * corner[0];
  const double north = cosLat * corner[2] - sinLat * (cosLon * corner[0] + sinLon * corner[1]);
  if (up < 0.1) return {1e9, 1e9};
  return {east / up, north / up};
}

// Where the origin lies between four corners (00, 10, 01, 11), in parts of the sides; by Newton's
// method, exact at once for parallelograms.
std::optional<Flat> within(const std::array<Flat, 4>& c) {
  constexpr double kHair = 1e-6;
  const Flat a{c[1].x - c[0].x, c[1].y - c[0].y}, b{c[2].x - c[0].x, c[2].y - c[0].y};
  const Flat d{c[0].x - c[1].x - c[2].x + c[3].x, c[0].y - c[1].y - c[2].y + c[3].y};
  double u = 0.5, v = 0.5;
  for (int step = 0; step < 12; ++step) {
    const double x = c[0].x + u * a.x + v * b.x + u * v * d.x;
    const double y = c[0].y + u * a.y + v * b.y + u * v * d.y;
    const double xu = a.x + v * d.x, xv = b.x + u * d.x, yu = a.y + v * d.y, yv = b.y + u * d.y;
    const double area = xu * yv - xv * yu;
    if (area == 0.0 || !std::isfinite(area)) return std::nullopt;
    const double du = (x * yv - y * xv) / area, dv = (y * xu - x * yu) / area;
    u -= du;
    v -= dv;
    if (std::fabs(du) + std::fabs(dv) < 1e-12) break;
  }
  if (!(u >= -kHair && u <= 1 + kHair && v >= -kHair && v <= 1 + kHair)) return std::nullopt;
  return Flat{std::clamp(u, 0.0, 1.0), std::clamp(v, 0.0, 1.0)};
}

}  // namespace

Quads::Quads(const Regridding& old, std::size_t columns)
    : old_(old), columns_(columns), rows_(columns > 0 ? old.lons.size() / columns : 0) {
  wraps_ = wrapsAround();
}

bool Quads::isPlace(std::size_t point) const {
  return std::isfinite(old_.lons[point]) && std::isfinite(old_.lats[point]);
}

// The last column is as near to the first as the first to the second, in most rows.
bool Quads::wrapsAround() const {
  if (columns_ < 3) return false;
  std::size_t near = 0, all = 0;
  const auto place = [&](std::size_t point) {
    return onSphere(old_.lons[point], old_.lats[point]);
  };
  for (std::size_t row = 0; row < rows_; ++row) {
    const std::size_t first = row * columns_, last = first + columns_ - 1;
    if (!isPlace(first) || !isPlace(first + 1) || !isPlace(last)) continue;
    ++all;
    if (chord(place(last), place(first)) <= 1.5 * chord(place(first), place(first + 1))) ++near;
  }
  return all > 0 && 2 * near > all;
}

std::optional<std::size_t> Quads::at(std::ptrdiff_t row, std::ptrdiff_t column) const {
  const auto columns = static_cast<std::ptrdiff_t>(columns_);
  if (row < 0 || row >= static_cast<std::ptrdiff_t>(rows_)) return std::nullopt;
  if (wraps_) column = (column + columns) % columns;
  if (column < 0 || column >= columns) return std::nullopt;
  const auto point = static_cast<std::size_t>(row * columns + column);
  if (!isPlace(point)) return std::nullopt;
  return point;
}

std::optional<Quads::Corners> Quads::around(double lon, double lat, std::size_t nearest) const {
  const auto row = static_cast<std::ptrdiff_t>(nearest / columns_);
  const auto column = static_cast<std::ptrdiff_t>(nearest % columns_);
  // The cells that meet in the nearest point come first; in skewed grids it may be one beside.
  for (const std::ptrdiff_t reach : {1, 2}) {
    for (std::ptrdiff_t j = row - reach; j < row + reach; ++j) {
      for (std::ptrdiff_t i = column - reach; i < column + reach; ++i) {
        const std::array found = {at(j, i), at(j, i + 1), at(j + 1, i), at(j + 1, i + 1)};
        if (!std::ranges::all_of(found, [](const auto& each) { return each.has_value(); }))
          continue;
        Corners corners{};
        std::array<Flat, 4> picture;
        for (std::size_t k = 0; k < 4; ++k) {
          corners.points[k] = *found[k];
          picture[k] = seen(lon, lat, old_.lons[*found[k]], old_.lats[*found[k]]);
        }
        const auto inside = within(picture);
        if (!inside) continue;
        const double u = inside->x, v = inside->y;
        corners.weights = {(1 - u) * (1 - v), u * (1 - v), (1 - u) * v, u * v};
        return corners;
      }
    }
  }
  return std::nullopt;
}

double Quads::spacing(std::size_t point) const {
  const auto row = static_cast<std::ptrdiff_t>(point / columns_);
  const auto column = static_cast<std::ptrdiff_t>(point % columns_);
  const Vector3 place = onSphere(old_.lons[point], old_.lats[point]);
  double widest = 0;
  for (const auto& next :
       {at(row - 1, column), at(row + 1, column), at(row, column - 1), at(row, column + 1)}) {
    if (next) widest = std::max(widest, chord(place, onSphere(old_.lons[*next], old_.lats[*next])));
  }
  return widest;
}

}  // namespace cli::fit
