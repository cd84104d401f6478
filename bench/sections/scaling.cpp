// How costs grow with the length of a section.
#include <algorithm>

#include "measure.h"
#include "netcdf/ncf.h"
#include "section/drawItems.h"
#include "section/sectionValues.h"

namespace bench {
namespace {

// Adds a benchmark for shares of the longest path of a data set.
template <class Work>
void addLengths(Files file, const std::string& what, Work work) {
  for (const int32_t parts : {16, 4, 1}) {
    add("growth/" + what + "/" + std::to_string(parts), [=](benchmark::State& state) {
      Scene scene(file("long"), acrossPath(), kWindow);
      const int32_t columns = std::max(ocxNetNc::ncf.nlon / parts, 2);
      scene.useColumns(columns);
      scene.control().Draw();
      measure(state, [&] {
        work(scene, columns);
        scene.mustBeWell();
      });
      tellSize(state, scene);
    });
  }
}

}  // namespace

void addScaling(Files file) {
  addLengths(file, "EndSection", [](Scene& scene, int32_t columns) { scene.useColumns(columns); });
  addLengths(file, "ReadVSData",
             [](Scene&, int32_t) { KelvaneMain::ReadVSData(KelvaneMain::VarShown, 1); });
  addLengths(file, "ReDraw", [](Scene& scene, int32_t) { scene.control().ReDraw(); });
  for (const int32_t divisions : {7500, 30'000}) {
    add("growth/key/" + std::to_string(divisions), [=](benchmark::State& state) {
      Scene scene(file("regional-classic"), acrossPath(), kWindow);
      scene.useKey(divisions);
      measure(state, [&] {
        scene.control().ReDraw();
        scene.mustBeWell();
      });
    });
  }
}

}  // namespace bench
