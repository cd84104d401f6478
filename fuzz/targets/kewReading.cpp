// The readers of KEW files, with any bytes as the file: they agree with each other, and what they
// refuse leaves the key as it was.

#include <algorithm>
#include <bit>

#include "colorkey/colorKey.h"
#include "colorkey/frmVarName.h"
#include "colorkey/kewFile.h"
#include "colorkey/kewListing.h"
#include "section/drawItems.h"
#include "support/sampleSets.h"
#include "targets/support/files.h"
#include "targets/support/must.h"
#include "util/lastError.h"

using namespace ModColor;

namespace {

void show(const std::string& name) {
  KelvaneMain::DrawItem item;
  item.name = name;
  KelvaneMain::DrawItems = {item};
  KelvaneMain::Item_shown = 1;
}

bool same(float a, float b) { return std::bit_cast<uint32_t>(a) == std::bit_cast<uint32_t>(b); }

// The key of a variable as the members read it, held against the listing.
void read(const std::string& fileName, const KewVariable& listed) {
  support::resetState();
  show(listed.name);
  const int32_t count = GetKewCol(fileName);
  MUST((count < 0) == (!listed.failure.empty() || listed.name.find('"') != std::string::npos));
  if (count < 0) {
    MUST(!util::LastError.empty());
    return;
  }
  MUST(count == static_cast<int32_t>(listed.divisions.size()));
  MUST(ColorKey.low.size() == count && ColorKey.high.size() == count &&
       ColorKey.color.size() == count);
  for (int32_t k = 1; k <= count; ++k) {
    const KewDivision& division = listed.divisions[static_cast<std::size_t>(k - 1)];
    MUST(same(ColorKey.low(k), division.low) && same(ColorKey.high(k), division.high));
    MUST(ColorKey.color(k) == division.color);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  const std::string fileName =
      fuzz::writeScratch("a.kew", {reinterpret_cast<const char*>(data), size});
  std::vector<KewVariable> listed;
  bool loaded = true;
  try {
    listed = ListKewFile(fileName);
  } catch (const std::runtime_error& refused) {
    MUST(*refused.what() != '\0');
    loaded = false;
  }
  frmVarName names;
  names.filename(fileName);
  MUST(names.lstVarNames().size() == listed.size());
  for (std::size_t i = 0; i < listed.size(); ++i) {
    MUST(names.lstVarNames()[i] == listed[i].name);
    if (!listed[i].ignored) read(fileName, listed[i]);
  }

  support::resetState();
  show("no such \t name");
  AddColorKey(1, 2, 3);
  MUST(GetKewCol(fileName) == -1);
  MUST(ColorKey.low.size() == 1 && same(ColorKey.low(1), 1) && ColorKey.color(1) == 3);
  MUST(loaded || listed.empty());
  return 0;
}
