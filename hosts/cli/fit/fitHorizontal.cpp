#include <cmath>

#include "failures.h"
#include "fit/horizontal.h"
#include "fit/rules.h"

namespace cli::fit {
namespace {

HorizontalAxis read(const Draft& draft, const Axis& axis) {
  HorizontalAxis found{axis, draft.axisValues(axis)};
  if (isRadians(textOf(draft.inVar(axis.var).attributes, "units"))) {
    for (double& value : found.values) value *= 180.0 / 3.14159265358979323846;
  }
  return found;
}

[[noreturn]] void refuse(const Draft& draft) {
  const Placing& placing = draft.main;
  const std::string spacing = suitableSpacing(pointsOf(draft, placing, placing.lon.var),
                                              pointsOf(draft, placing, placing.lat.var));
  throw Failure("The grid is " +
                std::string(placing.kind == GridKind::Cells ? "a list of cells" : "curvilinear") +
                ": " + draft.described(placing.lon.var) + " and " +
                draft.described(placing.lat.var) +
                " are no axes. Put it on a regular grid, for example with --grid " + spacing + ".");
}

}  // namespace

void fitHorizontal(Draft& draft) {
  if (draft.request.grid) {
    planGrid(draft);
    return;
  }
  HorizontalAxis lon, lat;
  if (draft.main.kind == GridKind::Axes) {
    lon = read(draft, draft.main.lon);
    lat = read(draft, draft.main.lat);
  } else if (draft.main.kind == GridKind::Cells || !makeAxes(draft, lon, lat)) {
    refuse(draft);
  }
  fitLongitudes(draft, std::move(lon));
  fitLatitudes(draft, std::move(lat));
}

}  // namespace cli::fit
