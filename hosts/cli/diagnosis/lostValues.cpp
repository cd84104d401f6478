#include "diagnosis/lostValues.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "diagnosis/headerFacts.h"
#include "fit/missing.h"

namespace cli::diagnosis {
namespace {

// Values that are read at a time.
constexpr std::size_t kStretch = std::size_t{1} << 18;

struct Stretch {
  std::vector<std::size_t> start, count;
};

// A stretch that begins at a part (from 0 to 1) of the variable: its last dimensions whole, as many
// as there is room for.
Stretch stretchAt(const std::vector<std::size_t>& lengths, double part) {
  Stretch stretch{std::vector<std::size_t>(lengths.size(), 0), lengths};
  std::size_t room = kStretch;
  for (std::size_t at = lengths.size(); at-- > 0;) {
    stretch.count[at] = std::clamp<std::size_t>(room, 1, lengths[at]);
    const auto most = static_cast<double>(lengths[at] - stretch.count[at]);
    stretch.start[at] = static_cast<std::size_t>(std::lround(part * most));
    room = stretch.count[at] < lengths[at] ? 1 : room / lengths[at];
  }
  return stretch;
}

// missing: the number that the control goes by.
std::vector<double> numbersForMissing(const Variable& variable, double missing) {
  std::vector<double> numbers = {missing, fit::kNewFill};
  for (const char* name : {"_FillValue", "missing_value"}) {
    const Attribute* found = find(variable.attributes, name);
    if (found == nullptr) continue;
    numbers.insert(numbers.end(), found->numbers.begin(), found->numbers.end());
  }
  return numbers;
}

}  // namespace

std::optional<double> lostValue(const Header& header, const Variable& variable) {
  if (variable.type < NC_BYTE || variable.type > NC_DOUBLE || variable.type == NC_CHAR) return {};
  std::vector<std::size_t> lengths;
  for (const int dim : variable.dims) {
    lengths.push_back(dimensionOf(header, dim).length);
    if (lengths.back() == 0) return {};
  }
  const double missing = fit::controlMissing(variable.attributes);
  const std::vector<double> known = numbersForMissing(variable, missing);
  std::vector<double> values;
  for (const double part : {0.0, 0.5, 1.0}) {
    const Stretch stretch = stretchAt(lengths, part);
    std::size_t all = 1;
    for (const std::size_t count : stretch.count) all *= count;
    values.resize(all);
    const int status = nc_get_vara_double(variable.group, variable.id, stretch.start.data(),
                                          stretch.count.data(), values.data());
    if (status != NC_NOERR) return {};
    const auto found = std::ranges::find_if(values, [&](double value) {
      return fit::takenForMissing(value, missing) && !std::isnan(value) &&
             !fit::standsForMissing(value, known);
    });
    if (found != values.end()) return *found;
    if (stretch.count == lengths) break;
  }
  return {};
}

}  // namespace cli::diagnosis
