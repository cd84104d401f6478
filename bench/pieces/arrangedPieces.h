#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "render/contourScreen.h"

namespace bench {

// How the pieces of a level lie: one after another, the same in any order, a cloud, all at one
// point, overlapping on one line, and between the points of a small lattice.
enum class Arrangement { Chain, ShuffledChain, Soup, SamePlace, OneLine, Lattice };
inline constexpr std::array kArrangements = {Arrangement::Chain,   Arrangement::ShuffledChain,
                                             Arrangement::Soup,    Arrangement::SamePlace,
                                             Arrangement::OneLine, Arrangement::Lattice};
const char* nameOf(Arrangement arrangement);

// So many pieces, the same on every machine.
std::vector<OcxContr::ScreenPiece> arranged(Arrangement arrangement, int32_t count);
// The squared distance over which they are joined.
double tolerance(Arrangement arrangement);

}  // namespace bench
