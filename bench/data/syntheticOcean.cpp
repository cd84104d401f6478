#include "syntheticOcean.h"

#include <algorithm>
#include <cmath>

namespace bench {
namespace {

constexpr double kDegree = 0.017453292519943295;
constexpr double kDeepest = 5000.0;
constexpr double kThermocline = 500.0;  // metres over which the surface's warmth falls by e
constexpr double kColdest = 2.0;

// Noise of 32 packed steps from a place's number: a few multiplications, the same everywhere.
int32_t noise(uint32_t seed) {
  seed ^= seed >> 16;
  seed *= 0x7feb352dU;
  seed ^= seed >> 15;
  seed *= 0x846ca68bU;
  seed ^= seed >> 16;
  return static_cast<int32_t>(seed & 31U) - 16;
}

}  // namespace

SyntheticOcean::SyntheticOcean(const DataSet& set) : set_(set) {
  for (std::size_t k = 0; k < set.levels; ++k) {
    // Levels close at the surface and wide below, as models have them.
    const double down = static_cast<double>(k + 1) / static_cast<double>(set.levels);
    depths_.push_back(static_cast<float>(kDeepest * down * down));
  }
  bottom_.resize(set.cells());
  for (std::size_t place = 0; place < set.cells(); ++place) {
    const double x = static_cast<double>(place % set.lons) / static_cast<double>(set.lons);
    const double y = static_cast<double>(place / set.lons) / static_cast<double>(set.lats);
    const double floor = 0.75 + 0.35 * std::cos(9.0 * x) * std::cos(7.0 * y + 2.0 * x);
    const double levels = static_cast<double>(set.levels) * std::sqrt(std::max(floor, 0.0));
    bottom_[place] = static_cast<int16_t>(std::min(levels, static_cast<double>(set.levels)));
  }
  go(0);
}

std::vector<float> SyntheticOcean::longitudes() const {
  std::vector<float> all;
  for (std::size_t i = 0; i < set_.lons; ++i) {
    all.push_back(static_cast<float>(set_.west + set_.spacing * static_cast<double>(i)));
  }
  return all;
}

std::vector<float> SyntheticOcean::latitudes() const {
  std::vector<float> all;
  for (std::size_t j = 0; j < set_.lats; ++j) {
    all.push_back(static_cast<float>(set_.south + set_.spacing * static_cast<double>(j)));
  }
  return all;
}

double SyntheticOcean::eddies(double lon, double lat, std::size_t step) const {
  const double moved = lon - 0.3 * static_cast<double>(step);
  return 3.0 * std::sin(1.7 * moved) * std::cos(2.1 * lat) + std::sin(5.3 * moved + lat);
}

void SyntheticOcean::go(std::size_t step) {
  const std::vector<float> lons = longitudes(), lats = latitudes();
  warmth_.clear();
  for (const float lat : lats) {
    const double zonal = 22.0 * std::cos(static_cast<double>(lat) * kDegree);
    for (const float lon : lons) {
      const double warm = zonal + eddies(static_cast<double>(lon), static_cast<double>(lat), step);
      warmth_.push_back(static_cast<float>(warm));
    }
  }
  step_ = static_cast<uint32_t>(step);
}

void SyntheticOcean::level(std::size_t k, std::vector<int16_t>& raw) const {
  const double left = std::exp(-static_cast<double>(depths_[k]) / kThermocline);
  const auto share = static_cast<float>(left / kScale);
  const auto base = static_cast<float>((kColdest - kOffset) / kScale);
  const auto first = static_cast<uint32_t>((step_ * set_.levels + k) * set_.cells());
  raw.resize(set_.cells());
  for (std::size_t place = 0; place < set_.cells(); ++place) {
    const int32_t value = static_cast<int32_t>(base + share * warmth_[place]) +
                          noise(first + static_cast<uint32_t>(place));
    raw[place] = static_cast<int16_t>(static_cast<std::size_t>(bottom_[place]) > k ? value : kFill);
  }
}

}  // namespace bench
