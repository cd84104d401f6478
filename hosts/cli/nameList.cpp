#include "nameList.h"

#include <algorithm>

namespace cli {

std::string nameList(const std::vector<std::string>& names) {
  constexpr std::size_t kMost = 10;
  const std::size_t shown = std::min(names.size(), kMost);
  std::string text;
  for (std::size_t at = 0; at < shown; ++at) text += (at == 0 ? "" : ", ") + names[at];
  if (names.size() > shown) text += " and " + std::to_string(names.size() - shown) + " more";
  return text;
}

}  // namespace cli
