// Frames and their parts: stepping through time, drawing again, contour lines, keys, profiles,
// picture files; and the fill of a picture, the least that any drawing does.
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <vector>

#include "measure.h"
#include "netcdf/ncf.h"
#include "render/settings.h"

namespace bench {
namespace {

// Adds a benchmark of a scene: change(scene) prepares it, work(scene) is measured.
template <class Change, class Work>
void addScene(Files file, const std::string& what, const std::string& set, Size size, Change change,
              Work work) {
  add(what + "/" + set + "/" + text(size), [=](benchmark::State& state) {
    Scene scene(file(set), set == "global" ? straightPath() : acrossPath(), size);
    if (set == "long") {
      scene.useColumns(ocxNetNc::ncf.nlon);
      scene.control().Draw();
    }
    change(scene);
    measure(state, [&] {
      work(scene);
      scene.mustBeWell();
    });
    tellSize(state, scene);
  });
}

void nothing(Scene&) {}
void frame(Scene& scene) { scene.control().AdvanceTime(1); }
void again(Scene& scene) { scene.control().ReDraw(); }
void contours(Scene&) { KelvaneMain::settings.ViewStyle = 1; }
void profiles(Scene& scene) { scene.control().DrawProfile(true); }

void save(Scene& scene) {
  const std::filesystem::path file = std::filesystem::temp_directory_path() /
                                     ("kelvane-bench-" + std::to_string(getpid()) + ".png");
  scene.pictures().savePng(file.string());
  std::filesystem::remove(file);
}

void addFill(Size size) {
  add("bare/fill/" + text(size), [=](benchmark::State& state) {
    std::vector<uint32_t> pixels(static_cast<std::size_t>(size.width) *
                                 static_cast<std::size_t>(size.height));
    uint32_t colour = 0;
    measure(state, [&] {
      std::fill(pixels.begin(), pixels.end(), ++colour);
      benchmark::DoNotOptimize(pixels.data());
      benchmark::ClobberMemory();
    });
  });
}

}  // namespace

void addDrawing(Files file) {
  for (const Size size : {kWindow, kLargeScreen}) {
    addFill(size);
    for (const char* set : {"regional-classic", "long"}) {
      addScene(file, "frame", set, size, nothing, frame);
      addScene(file, "redraw", set, size, nothing, again);
    }
    addScene(file, "contours", "regional-classic", size, contours, again);
    addScene(file, "profiles", "regional-classic", size, profiles, again);
    addScene(file, "png", "regional-classic", size, nothing, save);
  }
  for (const char* set : {"regional-blocks", "regional-levels", "global"}) {
    addScene(file, "frame", set, kWindow, nothing, frame);
  }
  for (const int32_t divisions : {10, 1000, 30'000}) {
    const std::string key = "key-" + std::to_string(divisions);
    const auto use = [=](Scene& scene) { scene.useKey(divisions); };
    addScene(file, key, "regional-classic", kWindow, use, again);
    // Its legend has a box and a label for every division.
    const auto useAlone = [=](Scene& scene) {
      scene.useKey(divisions);
      KelvaneMain::settings.ShowLegend = 0;
    };
    addScene(file, key + "-without-legend", "long", kWindow, useAlone, again);
  }
}

}  // namespace bench
