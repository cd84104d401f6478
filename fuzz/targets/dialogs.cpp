// The dialogs, driven by random events, on keys and key files of all kinds.

#include <utility>

#include "colorkey/cellColours.h"
#include "colorkey/colorKey.h"
#include "control/frmOptions.h"
#include "netcdf/ncf.h"
#include "section/drawItems.h"
#include "support/sampleSets.h"
#include "targets/support/Input.h"
#include "targets/support/RandomUser.h"
#include "targets/support/files.h"
#include "targets/support/invariants.h"
#include "targets/support/must.h"
#include "util/RuntimeError.h"

namespace {

std::string division(int32_t k) {
  return "<division><low>" + std::to_string(k) + "</low><high>" + std::to_string(k + 1) +
         "</high><color>" + std::to_string(k * 1000) + "</color></division>";
}

std::string document(const std::string& variables) { return "<section>" + variables + "</section>"; }

std::string variable(const std::string& name, int32_t divisions) {
  std::string text = "<variable name=\"" + name + "\">";
  for (int32_t k = 1; k <= divisions; ++k) text += division(k);
  return text + "</variable>";
}

std::vector<std::string> keyFiles() {
  return {fuzz::writeScratch("some.kew", document(variable("temp", 3) + variable("salt", 40))),
          fuzz::writeScratch("odd.kew", document(variable("", 1) + variable("temp", 0) +
                                                 variable("a &quot;b&quot;", 2) + "<variable/>" +
                                                 "<variable name=\"temp\"><division/></variable>")),
          fuzz::writeScratch("none.kew", "no key"), fuzz::scratchFile("missing.kew")};
}

void makeState(fuzz::Input& input) {
  const int32_t divisions = input.choice(12);
  for (int32_t k = 0; k < divisions; ++k) {
    const float low = input.single();
    ModColor::AddColorKey(low, input.single(), input.integer());
  }
  if (input.choice(8) == 7) ModColor::ColorKey.nDivision = input.integer();
  KelvaneMain::DrawItem item;
  item.name = "temp";
  item.variable = 1;
  KelvaneMain::DrawItems = {item, item};
  KelvaneMain::Item_shown = input.choice(3);
  ocxNetNc::ncf.NcFileName = input.coin() ? fuzz::scratchFile("set.nc") : "";
}

// The prepared key has the colours, and the failures, of the plain one.
void checkColours(fuzz::Input& input) {
  const auto outcome = [](const auto& colourOf, float value) {
    try {
      return std::pair(0, colourOf(value));
    } catch (const util::RuntimeError& error) {
      return std::pair(error.number(), 0);
    }
  };
  const ModColor::KeyLookup lookup;
  for (int32_t left = input.choice(10); left > 0; --left) {
    const float value = input.single();
    MUST(outcome(lookup, value) == outcome(ModColor::KeyColour, value));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  static const std::vector<std::string> files = keyFiles();
  support::resetState();
  fuzz::Input input(data, size);
  makeState(input);
  checkColours(input);
  fuzz::RandomUser user(input, files);
  while (!input.atEnd()) {
    const int32_t result = control::OpenOptionsForm(user);
    MUST(result == 1 || result == -1);
    MUST(KelvaneMain::Item_shown >= 0 && KelvaneMain::Item_shown <= 2);
  }
  fuzz::removeScratch("set.KEW");
  MUST(fuzz::scratchContents().size() == files.size() - 1);
  support::resetState();
  return 0;
}
