// The writers of KEW files, with any bytes as the file that is there, any name and any key: what
// was written reads back the same, everything else in the file is kept, and a failure leaves the
// file as it was and nothing beside it.

#include <bit>
#include <cmath>
#include <limits>

#include "colorkey/colorKey.h"
#include "colorkey/kewDocument.h"
#include "colorkey/kewFile.h"
#include "colorkey/kewListing.h"
#include "netcdf/ncf.h"
#include "section/drawItems.h"
#include "support/sampleSets.h"
#include "targets/support/Input.h"
#include "targets/support/files.h"
#include "targets/support/must.h"
#include "util/RuntimeError.h"
#include "util/lastError.h"

using namespace ModColor;

namespace {

void makeKey(fuzz::Input& input) {
  for (int32_t left = input.choice(6); left > 0; --left) {
    const float low = input.single();
    const float high = input.single();
    AddColorKey(low, high, input.integer());
  }
  // The count and the lists can disagree.
  if (input.choice(8) == 7) ColorKey.nDivision = input.integer();
}

// A bound that is no finite number reads as 0, and so does the negative zero.
float readBack(float bound) { return std::isfinite(bound) ? bound + 0.0F : 0.0F; }

bool same(float a, float b) { return std::bit_cast<uint32_t>(a) == std::bit_cast<uint32_t>(b); }

void checkReadBack(const std::string& fileName, const Key& written) {
  ColorKey = {};
  MUST(GetKewCol(fileName) == std::max(written.nDivision, 0));
  MUST(ColorKey.low.size() == std::max(written.nDivision, 0));
  for (int32_t k = 1; k <= written.nDivision; ++k) {
    MUST(same(ColorKey.low(k), readBack(written.low(k))));
    MUST(same(ColorKey.high(k), readBack(written.high(k))));
    MUST(ColorKey.color(k) == written.color(k));
  }
}

struct Text : pugi::xml_writer {
  void write(const void* data, std::size_t size) override {
    text.append(static_cast<const char*>(data), size);
  }
  std::string text;
};

// The document without a variable of a section, and without what a rewriting may change: the
// declared encoding.
std::string without(const std::string& fileName, const std::string& variable, bool last) {
  KewDocument document;
  document.load(fileName);
  pugi::xml_node first = document.tree.first_child();
  if (first.type() == pugi::node_declaration) first.remove_attribute("encoding");
  pugi::xml_node section = firstElement(document.tree, "section");
  MUST(section);
  section.remove_child(last ? section.last_child() : firstVariable(section, variable));
  Text written;
  document.tree.save(written, "", pugi::format_raw | pugi::format_no_declaration);
  return written.text;
}

void saveInto(const std::string& fileName, const std::string& variable) {
  const std::string before = fuzz::contentsOf(fileName);
  const Key key = ColorKey;
  const uint32_t failures = util::failuresReported();
  SaveExistingKew(fileName, variable);
  if (util::failuresReported() != failures) {
    MUST(!util::LastError.empty() && fuzz::contentsOf(fileName) == before);
    return;
  }
  // An earlier element of the name outside of the section, or a second one inside, is read first.
  const std::string rest = without(fileName, variable, true);
  fuzz::writeScratch("before.kew", before);
  MUST(rest == without(fuzz::scratchFile("before.kew"), variable, false));
  fuzz::removeScratch("before.kew");
  KewDocument document;
  document.load(fileName);
  const pugi::xml_node last = firstElement(document.tree, "section").last_child();
  MUST(last.attribute("name").value() == variable);
  if (firstVariable(document.tree, variable) == last) checkReadBack(fileName, key);
}

void saveNew(const std::string& variable) {
  fuzz::removeScratch("set.KEW");
  ocxNetNc::ncf.NcFileName = fuzz::scratchFile("set.nc");
  const Key key = ColorKey;
  const uint32_t failures = util::failuresReported();
  SaveKEW();
  const std::string fileName = fuzz::scratchFile("set.KEW");
  if (util::failuresReported() != failures) {
    MUST(fuzz::scratchContents() == std::vector<std::string>{"a.kew"});
    return;
  }
  // A name with a double quote is written, and never found again.
  if (variable.find('"') == std::string::npos) checkReadBack(fileName, key);
  ColorKey = key;
  saveInto(fileName, variable);
  fuzz::removeScratch("set.KEW");
}

}  // namespace

// The first line is the variable's name, then comes the key, the rest is the file.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  support::resetState();
  fuzz::Input input(data, size);
  // Names come from the netCDF library, which ends them with a zero byte.
  const std::string variable = input.text(64).c_str();
  KelvaneMain::DrawItem item;
  item.name = variable;
  KelvaneMain::DrawItems = {item};
  KelvaneMain::Item_shown = 1;
  makeKey(input);
  const Key key = ColorKey;
  const std::string fileName = fuzz::writeScratch("a.kew", input.rest());
  saveInto(fileName, variable);
  ColorKey = key;
  saveNew(variable);
  MUST(fuzz::scratchContents() == std::vector<std::string>{"a.kew"});
  return 0;
}
