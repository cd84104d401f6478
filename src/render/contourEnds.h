#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "render/contourScreen.h"

namespace OcxContr {

// Which of the entries 0..count-1 are still there, found from any place in nearly constant time.
class Remaining {
 public:
  void reset(int32_t count);
  void remove(int32_t entry) { next_[static_cast<std::size_t>(entry)] = entry + 1; }
  // The first entry at or behind this one that is still there; count when there is none.
  int32_t from(int32_t entry);

 private:
  std::vector<int32_t> next_;  // itself, or something closer to the next one that is there
};

// Finds the nearest end of the pieces of one level, as a search through the whole list would: of
// equally near pieces the first in list order, and of the ends of one piece the second. The ends
// stand in a static k-d tree over their distinct places; pieces only leave.
class EndIndex {
 public:
  enum class Among { Free, Undrawn };

  // Takes the pieces of a level, all of them free. Coordinates must be finite numbers.
  void build(std::span<const ScreenPiece> pieces);
  // The piece is free no longer.
  void pass(int32_t piece) { remove(free_, piece); }
  // The piece is drawn: neither free nor undrawn.
  void draw(int32_t piece);

  // The end nearest to an end of the current piece, at most the squared distance limit away;
  // piece -1 when there is none. The current piece is left out, and distances of 1E20 and more
  // do not count.
  PieceEnd nearest(PieceEnd at, double limit, Among among);

 private:
  // A place where ends meet, its entries begin..end-1 in the order of preference.
  struct Site {
    float x, y;
    int32_t begin, end;
  };
  struct Node {
    float left, right, top, bottom;  // the box around its sites
    int32_t begin, end;              // its entries
  };
  struct Search;

  void gatherSites(std::span<const ScreenPiece> pieces);
  void buildTree();
  void split(std::size_t node, std::size_t first, std::size_t last);
  void layOutEntries();
  void remove(Remaining& from, int32_t piece);
  void visit(Search& search, std::size_t place) const;
  void visitLeaf(Search& search, const Node& leaf) const;

  std::vector<Site> sites_;       // in the order of the tree's leaves
  std::vector<int32_t> entries_;  // the preference of each entry, which names its end
  std::vector<int32_t> siteOf_;   // site of each entry
  std::vector<int32_t> entryOf_;  // entry of each preference
  std::vector<int32_t> scratch_;
  std::vector<int32_t> slots_;    // of the table of places, while it is built; -1 where free
  std::vector<Node> nodes_;  // the children of node n are 2n + 1 and 2n + 2
  std::size_t firstLeaf_ = 0;
  Remaining free_, undrawn_;
};

}  // namespace OcxContr
