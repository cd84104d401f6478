#include "drawCommand.h"

namespace cli {

void draw(const DrawRequest& request) {
  refuseToReplaceSource(request.picture, request.output);
  Plotter plotter(request.picture);
  plotter.drawStep(request.step);
  noteEmptySection();
  plotter.save(request.output);
}

}  // namespace cli
