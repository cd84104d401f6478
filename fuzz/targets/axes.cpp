// Ticks, labels and legends of any range: what is drawn ends, is near the surface, and ticks stand
// where they should.

#include "colorkey/colorKey.h"
#include "colorkey/legend.h"
#include "colorkey/rampColour.h"
#include "render/axes.h"
#include "render/plotFrame.h"
#include "render/profileLayout.h"
#include "render/profileTicks.h"
#include "support/sampleSets.h"
#include "targets/support/CheckedBox.h"
#include "targets/support/Input.h"
#include "targets/support/must.h"
#include "util/RuntimeError.h"

namespace {

// A drawing that may end in one of the run-time errors of sizes that cannot be computed with.
template <class Draw>
void mayFail(Draw draw) {
  try {
    draw();
  } catch (const util::RuntimeError& error) {
    MUST(error.number() == util::kOverflow || error.number() == util::kSubscript ||
         error.number() == util::kDivisionByZero);
  }
}

void ticks(float minimum, float maximum, float interval) {
  mayFail([&] {
    const auto found = KelvaneMain::valueTicks(minimum, maximum, interval);
    MUST(found.size() <= 32767);
    if (!(interval > 0)) MUST(found.empty());
    for (std::size_t i = 0; i < found.size(); ++i) {
      MUST(!found[i].label.empty() && found[i].label.size() < 40);
      if (i > 0) MUST(found[i].value >= found[i - 1].value);
    }
  });
}

void steps(float range) {
  mayFail([&] { MUST(!(KelvaneMain::DistanceStep(range) < 0)); });
  mayFail([&] { MUST(!(KelvaneMain::DepthStep(range) < 0)); });
}

void legend(fuzz::CheckedBox& box, fuzz::Input& input) {
  ModColor::ValueMin = input.single();
  ModColor::ValueSpan = input.single();
  ModColor::RampDirection = input.choice(3);
  ModColor::bUseKey = input.choice(6) - 1;
  for (int32_t left = input.choice(5); left > 0; --left) {
    const float low = input.single();
    ModColor::AddColorKey(low, input.single(), input.integer());
  }
  const float x = input.single(), y = input.single();
  const float width = input.single(), height = input.single();
  mayFail([&] { ModColor::DrawRampLegend(box, x, y, width, height); });
  mayFail([&] { ModColor::DrawKeyLegend(box, x, y, width, height); });
  mayFail([&] {
    const platform::Colour colour = ModColor::RampColour(ModColor::valueFraction(input.single()));
    MUST(colour >= 0 && colour <= 0xFFFFFF);
  });
}

void frame(fuzz::CheckedBox& box, fuzz::Input& input) {
  KelvaneMain::plot = {};
  KelvaneMain::plot.PlotHeightBase = input.single();
  KelvaneMain::plot.WorldX1 = input.real();
  KelvaneMain::plot.WorldX2 = input.real();
  KelvaneMain::plot.WorldY1 = input.real();
  KelvaneMain::plot.WorldY2 = input.real();
  mayFail([&] {
    KelvaneMain::SetMargins(box);
    const int32_t width = input.integer(), height = input.integer();
    const int32_t right = input.integer();
    if (KelvaneMain::Cartesian(width, height, right, input.integer()) < 0) return;
    KelvaneMain::WorldToSurface(input.real(), input.real());
  });
  mayFail([&] {
    KelvaneMain::LayoutGraphs(box, input.integer(), input.integer(),
                              KelvaneMain::LabelSide{input.choice(3) - 1});
  });
}

void axes(fuzz::CheckedBox& box, fuzz::Input& input) {
  const float x = input.single(), y = input.single();
  const float units = input.single(), length = input.single();
  const float start = input.single();
  mayFail([&] { KelvaneMain::DrawDepthAxis(box, x, y, units, length, start); });
  box.Cls();
  mayFail([&] { KelvaneMain::DrawDistanceAxis(box, x, y, units, length, start); });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  support::resetState();
  fuzz::Input input(data, size);
  fuzz::CheckedBox box;
  box.Move(0, 0, 400, 300);
  for (int32_t left = 8; left > 0 && !input.atEnd(); --left) {
    box.Cls();
    switch (input.choice(5)) {
      case 0: {
        const float minimum = input.single();
        const float maximum = input.single();
        ticks(minimum, maximum, input.single());
        break;
      }
      case 1:
        steps(input.single());
        break;
      case 2:
        legend(box, input);
        break;
      case 3:
        frame(box, input);
        break;
      default:
        axes(box, input);
        break;
    }
  }
  return 0;
}
