#include "fit/SphereTree.h"

#include <cmath>
#include <nanoflann.hpp>

namespace cli::fit {
namespace {

constexpr double kRadian = 3.14159265358979323846 / 180.0;

// The places as the tree asks for them. Single precision is half a metre on the globe.
struct Cloud {
  std::vector<std::array<float, 3>> points;
  std::vector<std::size_t> places;

  std::size_t kdtree_get_point_count() const { return points.size(); }
  float kdtree_get_pt(std::size_t at, std::size_t axis) const { return points[at][axis]; }
  template <class Box>
  bool kdtree_get_bbox(Box& /*box*/) const {
    return false;
  }
};

using Index = nanoflann::KDTreeSingleIndexAdaptor<nanoflann::L2_Simple_Adaptor<float, Cloud>, Cloud,
                                                  3, std::size_t>;

}  // namespace

struct SphereTree::Tree {
  Cloud cloud;
  std::unique_ptr<Index> index;
};

Vector3 onSphere(double lon, double lat) {
  const double across = std::cos(lat * kRadian);
  return {across * std::cos(lon * kRadian), across * std::sin(lon * kRadian),
          std::sin(lat * kRadian)};
}

double chord(const Vector3& one, const Vector3& other) {
  return std::hypot(one[0] - other[0], one[1] - other[1], one[2] - other[2]);
}

SphereTree::SphereTree(const std::vector<double>& lons, const std::vector<double>& lats)
    : tree_(std::make_unique<Tree>()) {
  for (std::size_t at = 0; at < lons.size(); ++at) {
    if (!std::isfinite(lons[at]) || !std::isfinite(lats[at])) continue;
    const Vector3 place = onSphere(lons[at], lats[at]);
    tree_->cloud.points.push_back(
        {static_cast<float>(place[0]), static_cast<float>(place[1]), static_cast<float>(place[2])});
    tree_->cloud.places.push_back(at);
  }
  constexpr std::size_t kLeaf = 16;
  if (tree_->cloud.points.empty()) return;
  tree_->index =
      std::make_unique<Index>(3, tree_->cloud, nanoflann::KDTreeSingleIndexAdaptorParams(kLeaf));
}

SphereTree::~SphereTree() = default;

std::vector<SphereTree::Found> SphereTree::nearest(const Vector3& from, std::size_t wanted) const {
  std::vector<Found> found;
  if (!tree_->index) return found;
  std::vector<std::size_t> numbers(wanted);
  std::vector<float> squares(wanted);
  const std::array<float, 3> place = {static_cast<float>(from[0]), static_cast<float>(from[1]),
                                      static_cast<float>(from[2])};
  const std::size_t count =
      tree_->index->knnSearch(place.data(), wanted, numbers.data(), squares.data());
  for (std::size_t at = 0; at < count; ++at) {
    found.push_back(
        {tree_->cloud.places[numbers[at]], std::sqrt(static_cast<double>(squares[at]))});
  }
  return found;
}

}  // namespace cli::fit
