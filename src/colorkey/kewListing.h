#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/PictureBox.h"

namespace ModColor {

struct KewDivision {
  float low = 0, high = 0;
  platform::Colour color = 0;
  bool operator==(const KewDivision&) const = default;
};

// The key of one variable in a KEW file.
struct KewVariable {
  std::string name;      // empty when the element has none
  bool ignored = false;  // never read: without a name, or an earlier one has the same
  std::string failure;   // why its reading ends before the last division; empty when it does not
  std::vector<KewDivision> divisions;
};

// The keys of a KEW file in document order, each read by the rules of GetKewCol. A file that is
// missing, unreadable or no KEW file throws std::runtime_error with a text for the user.
std::vector<KewVariable> ListKewFile(const std::string& fileName);

}  // namespace ModColor
