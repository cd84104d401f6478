#include "colorkey/initColorKey.h"

#include <chrono>
#include <cmath>
#include <new>
#include <random>

#include "colorkey/colorKey.h"
#include "colorkey/kewFile.h"
#include "colorkey/randomColour.h"
#include "platform/Desktop.h"
#include "platform/files.h"
#include "section/drawItems.h"
#include "section/sectionValues.h"
#include "util/RuntimeError.h"
#include "util/lastError.h"
#include "util/rounding.h"

namespace ModColor {
namespace {

using KelvaneMain::DrawItem;
using util::asDouble;
using util::storeSingle;

constexpr int32_t kDivisions = 10;

void divideRange(const DrawItem& item) {
  const auto clock = std::chrono::system_clock::now().time_since_epoch().count();
  std::mt19937 generator(static_cast<std::mt19937::result_type>(clock));
  const auto uniform = [&generator] { return static_cast<double>(generator()) / 4294967296.0; };
  const double minimum = asDouble(item.plot_min);
  const float step = storeSingle(std::fabs(asDouble(item.plot_max) - minimum) / kDivisions);
  for (int32_t i = 0; i < kDivisions; ++i) {
    AddColorKey(storeSingle(i * asDouble(step) + minimum),
                storeSingle((i + 1) * asDouble(step) + minimum), randomColour(uniform));
  }
}

// False when there is nothing to divide: the section could not be read, or no value was ever met.
// Ten divisions of nothing, once saved, would be found by every later call.
bool readRange() {
  if (KelvaneMain::ReadVSData(KelvaneMain::VarShown, KelvaneMain::TimeShown) <= 0) return false;
  KelvaneMain::RoundPlotRange();
  const DrawItem& item = KelvaneMain::DrawItems(KelvaneMain::Item_shown);
  return item.maximum >= item.minimum || item.plot_max != item.plot_min;
}

// Number of divisions of the key in the file, -1 for none that can be used. A file that there is no
// memory for may well have one, which no other key may be saved over.
int32_t keyOf(const std::string& fileName) {
  try {
    return ReadKewCol(fileName);
  } catch (const std::bad_alloc&) {
    NewColorKey();
    throw;
  } catch (...) {
    util::reportTagged("ModColor GetKewCol");
    return -1;
  }
}

void makeKey(const std::string& fileName) {
  if (ColorKey.nDivision != 0) return;
  NewColorKey();
  if (platform::fileExists(fileName)) {
    ColorKey.nDivision = keyOf(fileName);
    if (ColorKey.nDivision >= 0) {
      bUseKey = -1;
      return;
    }
  }
  if (!readRange()) {
    ColorKey.nDivision = 0;
    return;
  }
  divideRange(KelvaneMain::DrawItems(KelvaneMain::Item_shown));
  bUseKey = -1;
  SaveKEW();
}

// The error that is being handled; without the memory for a box it is reported.
void showError() noexcept {
  try {
    platform::desktop().ShowMessage(util::currentError().description, "InitColorKey",
                                    platform::MessageIcon::Information);
  } catch (...) {
    util::reportBracketed("InitColorKey");
  }
}

}  // namespace

void InitColorKey(const std::string& fileName) {
  try {
    makeKey(fileName);
  } catch (...) {
    showError();
  }
}

}  // namespace ModColor
