#include "render/contourEnds.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

namespace OcxContr {
namespace {

constexpr std::size_t kLeafSites = 4;
// The search starts from this distance, so an end has to be nearer.
constexpr double kFarthest = 1E20;

std::size_t at(int32_t index) { return static_cast<std::size_t>(index); }

// Ends in the order in which a search prefers them: pieces in list order, the second end first.
int32_t preference(PieceEnd end) { return 2 * end.piece + (end.second ? 0 : 1); }
PieceEnd endOf(int32_t preference) { return {preference / 2, preference % 2 == 0}; }

// Of coordinates that are equal, zeros of both signs too, the same number.
std::size_t hashOf(float x, float y) {
  const auto bits = [](float coordinate) {
    return uint64_t{std::bit_cast<uint32_t>(coordinate == 0.0F ? 0.0F : coordinate)};
  };
  const uint64_t mixed = (bits(x) << 32U | bits(y)) * 0x9E3779B97F4A7C15U;
  return static_cast<std::size_t>((mixed ^ mixed >> 29U) * 0xBF58476D1CE4E5B9U >> 32U);
}

// Distance of a coordinate from an interval. Rounding is monotone, so a box is never taken for
// farther away than anything in it.
double outside(float low, float high, float coordinate) {
  const double x = static_cast<double>(coordinate);
  return std::max({static_cast<double>(low) - x, x - static_cast<double>(high), 0.0});
}

}  // namespace

void Remaining::reset(int32_t count) {
  next_.resize(at(count) + 1);
  std::iota(next_.begin(), next_.end(), 0);
}

int32_t Remaining::from(int32_t entry) {
  // Halving the way as it is walked keeps all ways short.
  while (next_[at(entry)] != entry) {
    next_[at(entry)] = next_[at(next_[at(entry)])];
    entry = next_[at(entry)];
  }
  return entry;
}

struct EndIndex::Search {
  Remaining& remaining;
  float x, y;
  int32_t current;
  double distance;                                     // of the best end so far, at first the limit
  int32_t best = std::numeric_limits<int32_t>::max();  // its preference

  void consider(double found, int32_t order) {
    if (found < distance || (found == distance && order < best)) {
      distance = found;
      best = order;
    }
  }
};

void EndIndex::build(std::span<const ScreenPiece> pieces) {
  gatherSites(pieces);
  buildTree();
  layOutEntries();
  const auto count = static_cast<int32_t>(entries_.size());
  free_.reset(count);
  undrawn_.reset(count);
}

// Finds the ends of a place through a table of the places met so far, and puts them side by side.
void EndIndex::gatherSites(std::span<const ScreenPiece> pieces) {
  const std::size_t ends = 2 * pieces.size();
  const std::size_t slots = std::bit_ceil(2 * ends);
  slots_.assign(slots, -1);
  siteOf_.resize(ends);
  sites_.clear();
  for (std::size_t order = 0; order < ends; ++order) {
    const PieceEnd end = endOf(static_cast<int32_t>(order));
    const ScreenPiece& piece = pieces[at(end.piece)];
    const float x = end.second ? piece.x2 : piece.x1, y = end.second ? piece.y2 : piece.y1;
    std::size_t slot = hashOf(x, y) & (slots - 1);
    for (; slots_[slot] >= 0; slot = (slot + 1) & (slots - 1)) {
      const Site& met = sites_[at(slots_[slot])];
      if (met.x == x && met.y == y) break;
    }
    if (slots_[slot] < 0) {
      slots_[slot] = static_cast<int32_t>(sites_.size());
      sites_.push_back({x, y, 0, 0});
    }
    siteOf_[order] = slots_[slot];
    ++sites_[at(slots_[slot])].end;
  }
  int32_t next = 0;
  for (Site& site : sites_) {
    site.begin = next;
    next += std::exchange(site.end, next);
  }
  // In the order of preference within each place.
  scratch_.resize(ends);
  for (std::size_t order = 0; order < ends; ++order) {
    scratch_[at(sites_[at(siteOf_[order])].end++)] = static_cast<int32_t>(order);
  }
}

void EndIndex::buildTree() {
  firstLeaf_ = 0;
  for (std::size_t sites = sites_.size(); sites >= 2 * kLeafSites; sites /= 2) {
    firstLeaf_ = 2 * firstLeaf_ + 1;
  }
  nodes_.clear();
  if (sites_.empty()) return;
  nodes_.resize(2 * firstLeaf_ + 1);
  split(0, 0, sites_.size());
}

// All leaves are at one depth, about log2 of the number of sites.
void EndIndex::split(std::size_t node, std::size_t first, std::size_t last) {
  const auto siteAt = [this](std::size_t site) {
    return sites_.begin() + static_cast<std::ptrdiff_t>(site);
  };
  Node box{sites_[first].x, sites_[first].x, sites_[first].y, sites_[first].y, 0, 0};
  for (auto site = siteAt(first); site != siteAt(last); ++site) {
    box.left = std::min(box.left, site->x);
    box.right = std::max(box.right, site->x);
    box.top = std::min(box.top, site->y);
    box.bottom = std::max(box.bottom, site->y);
  }
  box.begin = static_cast<int32_t>(first);  // sites, until the entries are laid out
  box.end = static_cast<int32_t>(last);
  nodes_[node] = box;
  if (node >= firstLeaf_) return;
  const std::size_t middle = first + (last - first) / 2;
  const bool wide = outside(box.left, box.left, box.right) > outside(box.top, box.top, box.bottom);
  std::nth_element(siteAt(first), siteAt(middle), siteAt(last),
                   [wide](const Site& a, const Site& b) { return wide ? a.x < b.x : a.y < b.y; });
  split(2 * node + 1, first, middle);
  split(2 * node + 2, middle, last);
}

// Puts the entries of neighbouring leaves side by side.
void EndIndex::layOutEntries() {
  entries_.clear();
  siteOf_.clear();
  entryOf_.resize(scratch_.size());
  for (std::size_t s = 0; s < sites_.size(); ++s) {
    Site& site = sites_[s];
    const auto begin = static_cast<int32_t>(entries_.size());
    for (int32_t sorted = site.begin; sorted < site.end; ++sorted) {
      entryOf_[at(scratch_[at(sorted)])] = static_cast<int32_t>(entries_.size());
      entries_.push_back(scratch_[at(sorted)]);
      siteOf_.push_back(static_cast<int32_t>(s));
    }
    site.begin = begin;
    site.end = static_cast<int32_t>(entries_.size());
  }
  for (Node& node : nodes_) {
    node.begin = sites_[at(node.begin)].begin;
    node.end = sites_[at(node.end - 1)].end;
  }
}

void EndIndex::remove(Remaining& from, int32_t piece) {
  from.remove(entryOf_[at(2 * piece)]);
  from.remove(entryOf_[at(2 * piece + 1)]);
}

void EndIndex::draw(int32_t piece) {
  remove(free_, piece);
  remove(undrawn_, piece);
}

PieceEnd EndIndex::nearest(PieceEnd end, double limit, Among among) {
  if (!(limit >= 0.0)) return {};
  Remaining& remaining = among == Among::Free ? free_ : undrawn_;
  const Site& here = sites_[at(siteOf_[at(entryOf_[at(preference(end))])])];
  // Nothing is nearer than an end in the same place, and that is where lines mostly go on.
  for (int32_t entry = remaining.from(here.begin); entry < here.end;
       entry = remaining.from(entry + 1)) {
    const PieceEnd found = endOf(entries_[at(entry)]);
    if (found.piece != end.piece) return found;
  }
  const double start = limit < kFarthest ? limit : std::nextafter(kFarthest, 0.0);
  Search search{
      .remaining = remaining, .x = here.x, .y = here.y, .current = end.piece, .distance = start};
  visit(search, 0);
  return search.best == std::numeric_limits<int32_t>::max() ? PieceEnd{} : endOf(search.best);
}

void EndIndex::visit(Search& search, std::size_t place) const {
  const Node& node = nodes_[place];
  if (search.remaining.from(node.begin) >= node.end) return;
  if (place >= firstLeaf_) {
    visitLeaf(search, node);
    return;
  }
  const auto distanceTo = [&](const Node& box) {
    const double dx = outside(box.left, box.right, search.x);
    const double dy = outside(box.top, box.bottom, search.y);
    return dx * dx + dy * dy;
  };
  std::size_t near = 2 * place + 1, far = near + 1;
  double nearDistance = distanceTo(nodes_[near]), farDistance = distanceTo(nodes_[far]);
  if (farDistance < nearDistance) {
    std::swap(near, far);
    std::swap(nearDistance, farDistance);
  }
  // A box just as far as the best end is looked into: it may hold an earlier piece.
  if (nearDistance <= search.distance) visit(search, near);
  if (farDistance <= search.distance) visit(search, far);
}

void EndIndex::visitLeaf(Search& search, const Node& leaf) const {
  Remaining& remaining = search.remaining;
  for (int32_t entry = remaining.from(leaf.begin); entry < leaf.end;) {
    const int32_t order = entries_[at(entry)];
    if (endOf(order).piece == search.current) {
      entry = remaining.from(entry + 1);
      continue;
    }
    const Site& site = sites_[at(siteOf_[at(entry)])];
    search.consider(squaredDistance(search.x, search.y, site.x, site.y), order);
    entry = remaining.from(site.end);
  }
}

}  // namespace OcxContr
