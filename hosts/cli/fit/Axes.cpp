#include "fit/Axes.h"

#include <algorithm>
#include <functional>

#include "util/ocxStrings.h"

namespace cli::fit {
namespace {

bool has(const std::vector<int>& list, int wanted) {
  return std::ranges::find(list, wanted) != list.end();
}

class Finder {
 public:
  Finder(const Input& input, int variable)
      : header_(input.header()),
        own_(variable),
        dims_(header_.vars[static_cast<std::size_t>(variable)].dims) {}

  Placing find() {
    Placing placing;
    findAxes(placing);
    if (placing.kind == GridKind::None) findPlaces(placing, 2);
    if (placing.kind == GridKind::None) findPlaces(placing, 1);
    placing.time = timeAxis(placing);
    placing.level = levelAxis(placing);
    return placing;
  }

 private:
  const Variable& var(int number) const { return header_.vars[static_cast<std::size_t>(number)]; }
  const Dimension& dim(int number) const { return header_.dims[static_cast<std::size_t>(number)]; }
  int count() const { return static_cast<int>(header_.vars.size()); }

  // Of the variables of one dimension among this variable's, the first that is what is wanted;
  // one of the dimension's own name goes before all.
  Axis axis(const std::function<bool(const Variable&)>& wanted,
            const std::vector<int>& taken) const {
    for (const bool ownName : {true, false}) {
      for (int number = 0; number < count(); ++number) {
        const Variable& candidate = var(number);
        if (candidate.dims.size() != 1 || !has(dims_, candidate.dims[0])) continue;
        if (has(taken, candidate.dims[0]) || number == own_) continue;
        if (ownName != (candidate.name == dim(candidate.dims[0]).name)) continue;
        if (wanted(candidate)) return {candidate.dims[0], number};
      }
    }
    return {};
  }

  void findAxes(Placing& placing) const {
    const Axis lon = axis(isLongitude, {}), lat = axis(isLatitude, {lon.dim});
    if (!lon.found() || !lat.found()) return;
    placing.kind = GridKind::Axes;
    placing.lon = lon;
    placing.lat = lat;
    placing.places = {lat.dim, lon.dim};
  }

  bool isNamedHere(const Variable& candidate) const {
    const std::string named = textOf(var(own_).attributes, "coordinates");
    return (" " + named + " ").find(" " + candidate.name + " ") != std::string::npos;
  }

  // The horizontal dimensions of a coordinate variable: its last ones. Coordinates that are
  // repeated at every time step count as well.
  std::vector<int> placesOf(const Variable& candidate, std::size_t rank) const {
    const std::vector<int>& dims = candidate.dims;
    if (dims.size() < rank || dims.size() > rank + 1) return {};
    if (dims.size() == rank + 1 && !soundsLikeTime(dim(dims[0]).name)) return {};
    const std::vector<int> last(dims.end() - static_cast<std::ptrdiff_t>(rank), dims.end());
    for (const int each : last) {
      if (!has(dims_, each)) return {};
    }
    return last;
  }

  int position(bool (*wanted)(const Variable&), std::size_t rank,
               const std::vector<int>& places) const {
    for (const bool named : {true, false}) {
      for (int number = 0; number < count(); ++number) {
        const Variable& candidate = var(number);
        if (number == own_ || named != isNamedHere(candidate) || !wanted(candidate)) continue;
        const std::vector<int> found = placesOf(candidate, rank);
        if (!found.empty() && (places.empty() || found == places)) return number;
      }
    }
    return -1;
  }

  void findPlaces(Placing& placing, std::size_t rank) const {
    const int lon = position(isLongitude, rank, {});
    if (lon < 0) return;
    const std::vector<int> places = placesOf(var(lon), rank);
    const int lat = position(isLatitude, rank, places);
    if (lat < 0) return;
    placing.kind = rank == 2 ? GridKind::Curvilinear : GridKind::Cells;
    placing.lon.var = lon;
    placing.lat.var = lat;
    placing.places = places;
  }

  Axis timeAxis(const Placing& placing) const {
    const Axis found = axis(isTime, placing.places);
    if (found.found()) return found;
    for (const int each : dims_) {
      if (!has(placing.places, each) && soundsLikeTime(dim(each).name)) return {each, -1};
    }
    return {};
  }

  Axis levelAxis(const Placing& placing) const {
    std::vector<int> taken = placing.places;
    if (placing.time.found()) taken.push_back(placing.time.dim);
    const Axis found =
        axis([](const Variable& each) { return verticalOf(each) != Vertical::None; }, taken);
    if (found.found()) return found;
    for (const int each : dims_) {
      if (!has(taken, each) && verticalOfName(dim(each).name) != Vertical::None) {
        return {each, -1};
      }
    }
    return {};
  }

  const Header& header_;
  int own_;
  const std::vector<int>& dims_;
};

}  // namespace

Placing placingOf(const Input& input, int variable) { return Finder(input, variable).find(); }

}  // namespace cli::fit
