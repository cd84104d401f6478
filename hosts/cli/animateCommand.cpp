#include "animateCommand.h"

#include <string>

#include "ProgressBar.h"
#include "failures.h"
#include "netcdf/ncf.h"
#include "terminal.h"

namespace cli {
namespace {

using ocxNetNc::ncf;

// The last step to draw. Beyond the data set's last one the control would begin again.
int32_t lastStep(const StepRange& steps) {
  if (ncf.has_time != 1 || ncf.ntime < 1) {
    throw Failure("The data set has no time steps to go through.");
  }
  const int32_t last = steps.last.value_or(ncf.ntime);
  const int32_t highest = last < steps.first ? steps.first : last;
  if (highest > ncf.ntime) {
    throw Failure("There is no time step " + std::to_string(highest) + ": the data set has " +
                  std::to_string(ncf.ntime) + ".");
  }
  return last;
}

void noteEmptySteps(int32_t count, int32_t total) {
  if (count == 0) return;
  report("note: every value of " + shownName() + " is missing along this path in " +
         std::to_string(count) + " of " + std::to_string(total) + " time steps.");
}

}  // namespace

void animate(const AnimateRequest& request) {
  Plotter plotter(request.picture);
  const int32_t first = request.steps.first, last = lastStep(request.steps);
  for (int32_t step = first; step <= last; ++step) {
    refuseToReplaceSource(request.picture, request.output.name(step));
  }
  int32_t emptySteps = 0;
  {
    // Nothing is shown before the first picture: notes come before the bar.
    ProgressBar progress(last - first + 1);
    for (int32_t step = first; step <= last; ++step) {
      if (step == first) {
        plotter.drawStep(step);
      } else {
        plotter.drawNextStep();
      }
      if (sectionIsEmpty()) ++emptySteps;
      plotter.save(request.output.name(step));
      progress.show(step - first + 1);
    }
  }
  noteEmptySteps(emptySteps, last - first + 1);
}

}  // namespace cli
