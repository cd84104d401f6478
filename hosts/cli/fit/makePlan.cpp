#include "fit/makePlan.h"

#include <array>

#include "fit/rules.h"

namespace cli::fit {

Plan makePlan(const Input& input, const Request& request, const std::set<int>& refilled) {
  constexpr std::array kRules = {chooseVariables, selectIndices, cutSteps,        fitHorizontal,
                                 fitVertical,     fitTime,       orderDimensions, fitTypes,
                                 fitMissing,      fitAttributes, fitNames,        arrange};
  Draft draft(input, request);
  draft.refilled = refilled;
  for (const auto rule : kRules) rule(draft);
  return std::move(draft.plan);
}

}  // namespace cli::fit
