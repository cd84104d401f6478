// Opening and reading, beside the bare calls of the netCDF library.
#include <array>

#include "measure.h"
#include "netcdf/ncf.h"
#include "section/drawItems.h"
#include "section/sectionValues.h"

namespace bench {
namespace {

constexpr std::array kSets = {"regional-classic",      "regional-blocks", "regional-levels",
                              "regional-records",      "regional-steps",  "regional-times",
                              "regional-small-chunks", "global",          "long"};

// Goes through the time steps, from 1 and again.
class Steps {
 public:
  int32_t next() { return step_ = step_ >= ocxNetNc::ncf.ntime ? 1 : step_ + 1; }

 private:
  int32_t step_ = 0;
};

Path usualPath(const std::string& set) { return set == "global" ? straightPath() : acrossPath(); }

void prepare(Scene& scene, const std::string& set) {
  if (set == "long") scene.useColumns(ocxNetNc::ncf.nlon);
}

void addOpening(Files file, const std::string& set) {
  add("open/" + set, [=](benchmark::State& state) {
    Scene scene(file(set), usualPath(set), kWindow);
    measure(state, [&] {
      scene.control().NcFile(file(set));
      scene.mustBeWell();
    });
  });
  add("bare/open/" + set, [=](benchmark::State& state) {
    BareReads bare(file(set), {{0, 0}});
    measure(state, [&] { bare.catalogue(); });
  });
}

void readSection(benchmark::State& state, Scene& scene) {
  Steps steps;
  measure(state, [&] {
    KelvaneMain::ReadVSData(KelvaneMain::VarShown, steps.next());
    scene.mustBeWell();
  });
  tellSize(state, scene);
}

template <class Read>
void readBare(benchmark::State& state, const Scene& scene, Read read) {
  BareReads bare = scene.bareReads();
  Steps steps;
  measure(state, [&] { read(bare, static_cast<std::size_t>(steps.next() - 1)); });
}

void addPath(Files file, const std::string& set, const std::string& kind, const Path& path) {
  const std::string name = kind + "/" + set;
  const auto addOne = [&](const std::string& what, auto body) {
    return add(what + name, [=](benchmark::State& state) {
      Scene scene(file(set), path, kWindow);
      if (kind == "general") prepare(scene, set);
      body(state, scene);
    });
  };
  addOne("read/", readSection);
  auto* columns = addOne("bare/columns/", [](benchmark::State& state, const Scene& scene) {
    readBare(state, scene, [](BareReads& bare, std::size_t step) { bare.columnByColumn(step); });
  });
  // Seconds a time, and never the quicker way.
  if (set == "long") columns->Repetitions(1);
  addOne("bare/box/", [](benchmark::State& state, const Scene& scene) {
    readBare(state, scene, [](BareReads& bare, std::size_t step) { bare.boundingBox(step); });
  });
}

}  // namespace

void addReading(Files file) {
  for (const char* set : kSets) {
    addOpening(file, set);
    addPath(file, set, "general", usualPath(set));
  }
  for (const char* set : {"regional-classic", "regional-blocks", "regional-levels"}) {
    addPath(file, set, "row", rowPath());
    addPath(file, set, "column", columnPath());
  }
  // What the library's own chunk cache makes of the worst layout: some 40 s, so once and only when
  // it is asked for by its name.
  add("default-cache/regional-levels", [=](benchmark::State& state) {
    const Scene scene(file("regional-levels"), acrossPath(), kWindow);
    BareReads bare = scene.bareReads();
    for (auto _ : state) bare.columnByColumn(0, BareReads::Cache::Default);
  })->Iterations(1);
}

}  // namespace bench
