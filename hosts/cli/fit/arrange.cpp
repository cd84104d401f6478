#include <algorithm>
#include <array>
#include <ctime>

#include "failures.h"
#include "fit/rules.h"
#include "netcdf/typeBytes.h"

namespace cli::fit {
namespace {

// Bytes of a variable; of one step when its first dimension is that of the steps.
double bytesOf(const Draft& draft, const PlanVar& variable, bool oneStep) {
  auto bytes = static_cast<double>(NetCDF::bytesOfType(variable.type));
  for (const int dim : variable.dims) {
    if (!oneStep || dim != draft.time.dim) bytes *= static_cast<double>(draft.dim(dim).length());
  }
  return bytes;
}

// What the format allows of one variable, or of one of its steps.
constexpr double kMostBytes = 4294967292.0;

bool hasStepsFirst(const Draft& draft, const PlanVar& variable) {
  const auto at = std::ranges::find(variable.dims, draft.time.dim);
  return at == variable.dims.end() || at == variable.dims.begin();
}

void setUnlimited(Draft& draft) {
  const bool was = draft.dim(draft.time.dim).unlimited;
  for (PlanDim& dim : draft.plan.dims) dim.unlimited = false;
  bool large = false, first = true;
  for (const PlanVar& variable : draft.plan.vars) {
    if (variable.gone) continue;
    large = large || bytesOf(draft, variable, false) > kMostBytes;
    first = first && hasStepsFirst(draft, variable);
  }
  if (large) {
    for (PlanVar& variable : draft.plan.vars) {
      if (variable.gone) continue;
      if (!hasStepsFirst(draft, variable)) variable.putFirst(draft.time.dim);
      const double bytes = bytesOf(draft, variable, true);
      if (bytes > kMostBytes) {
        throw Failure("One time step of " + variable.name +
                      " has more than 4 gigabytes, which the classic format cannot hold. Cut it "
                      "with --box.");
      }
    }
  }
  draft.dim(draft.time.dim).unlimited = large || (was && first);
}

// Words of "coordinates" that are no variables of the copy any more.
void tidyCoordinates(Draft& draft) {
  for (PlanVar& variable : draft.plan.vars) {
    const Attribute* coordinates = find(variable.attributes, "coordinates");
    if (variable.gone || coordinates == nullptr || !coordinates->isText()) continue;
    std::string kept, word;
    for (const char letter : coordinates->text + " ") {
      if (letter != ' ') {
        word += letter;
        continue;
      }
      if (!word.empty() && draft.plan.variable(word) != nullptr) {
        kept += (kept.empty() ? "" : " ") + word;
      }
      word.clear();
    }
    if (kept.empty()) {
      remove(variable.attributes, "coordinates");
    } else {
      setText(variable.attributes, "coordinates", kept);
    }
  }
}

void writeHistory(Draft& draft) {
  std::array<char, 32> now{};
  const std::time_t seconds = std::time(nullptr);
  std::tm parts{};
  gmtime_r(&seconds, &parts);
  std::strftime(now.data(), now.size(), "%Y-%m-%dT%H:%M:%SZ", &parts);
  const std::string before = textOf(draft.plan.globals, "history");
  setText(draft.plan.globals, "history",
          std::string(now.data()) + " " + draft.request.commandText +
              (before.empty() ? "" : "\n" + before));
}

// The axes in front: of several variables that could be an axis the control takes the first.
void putAxesInFront(Draft& draft) {
  std::vector<PlanVar> arranged;
  const std::array axes = {draft.time.var, draft.level.var, draft.lat.var, draft.lon.var};
  for (const int number : axes) arranged.push_back(draft.var(number));
  for (std::size_t at = 0; at < draft.plan.vars.size(); ++at) {
    const PlanVar& variable = draft.plan.vars[at];
    if (variable.gone || std::ranges::find(axes, static_cast<int>(at)) != axes.end()) continue;
    arranged.push_back(variable);
  }
  draft.plan.vars = std::move(arranged);
}

}  // namespace

void arrange(Draft& draft) {
  tidyCoordinates(draft);
  setUnlimited(draft);
  writeHistory(draft);
  putAxesInFront(draft);
}

}  // namespace cli::fit
