#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

namespace cli::fit {

using Vector3 = std::array<double, 3>;

// A place on the unit sphere.
Vector3 onSphere(double lon, double lat);
// The straight distance of two places, in radii.
double chord(const Vector3& one, const Vector3& other);

// Finds the nearest of many places on the globe, across seams and poles.
class SphereTree {
 public:
  // Degrees; places with a NaN are left out.
  SphereTree(const std::vector<double>& lons, const std::vector<double>& lats);
  ~SphereTree();
  SphereTree(const SphereTree&) = delete;
  SphereTree& operator=(const SphereTree&) = delete;

  struct Found {
    std::size_t place = 0;  // number in the lists
    double distance = 0;    // straight, in radii
  };
  // The nearest ones, the nearest first; fewer than wanted when there are not so many.
  std::vector<Found> nearest(const Vector3& from, std::size_t wanted) const;

 private:
  struct Tree;
  std::unique_ptr<Tree> tree_;
};

}  // namespace cli::fit
