#include "fit/Regridder.h"

#include <cmath>
#include <limits>
#include <optional>

#include "failures.h"
#include "fit/SphereTree.h"
#include "fit/quads.h"

namespace cli::fit {
namespace {

// Parts of a cell that a point stands for in each direction: half of it, and the corners.
constexpr double kReach = 0.75;
// Of points without rows and columns, the one whose distance is about that of all neighbours: the
// point itself is the first.
constexpr std::size_t kNeighbour = 5;

}  // namespace

Regridder::Regridder(const Regridding& old, std::size_t columns, const std::vector<double>& lons,
                     const std::vector<double>& lats, Method method) {
  if (old.lons.size() > std::numeric_limits<std::uint32_t>::max()) {
    throw Failure("The old grid has too many points.");
  }
  const SphereTree tree(old.lons, old.lats);
  std::optional<Quads> quads;
  if (columns > 0) quads.emplace(old, columns);
  const auto spacing = [&](std::size_t point) {
    if (quads) return quads->spacing(point);
    const auto near = tree.nearest(onSphere(old.lons[point], old.lats[point]), kNeighbour);
    return near.empty() ? 0.0 : near.back().distance;
  };
  sources_.reserve(lons.size() * lats.size());
  for (const double lat : lats) {
    for (const double lon : lons) {
      Source& source = sources_.emplace_back();
      const auto near = tree.nearest(onSphere(lon, lat), 1);
      if (near.empty()) continue;
      const auto corners = method == Method::Bilinear && quads
                               ? quads->around(lon, lat, near[0].place)
                               : std::nullopt;
      if (corners) {
        for (std::size_t k = 0; k < 4; ++k) {
          source.points[k] = static_cast<std::uint32_t>(corners->points[k]);
          source.weights[k] = static_cast<float>(corners->weights[k]);
        }
      } else if (near[0].distance <= kReach * spacing(near[0].place)) {
        source.points[0] = static_cast<std::uint32_t>(near[0].place);
        source.weights[0] = 1.0F;
      }
    }
  }
}

void Regridder::apply(const std::vector<double>& values, std::vector<double>& nodes) const {
  nodes.resize(sources_.size());
  for (std::size_t node = 0; node < sources_.size(); ++node) {
    const Source& source = sources_[node];
    double sum = 0, weights = 0;
    for (std::size_t k = 0; k < 4; ++k) {
      if (source.weights[k] == 0.0F) continue;
      const double value = values[source.points[k]];
      if (std::isnan(value)) continue;
      sum += static_cast<double>(source.weights[k]) * value;
      weights += static_cast<double>(source.weights[k]);
    }
    nodes[node] = weights >= 0.5 ? sum / weights : std::numeric_limits<double>::quiet_NaN();
  }
}

}  // namespace cli::fit
