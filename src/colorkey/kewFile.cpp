#include "colorkey/kewFile.h"

#include <new>
#include <stdexcept>

#include "colorkey/colorKey.h"
#include "colorkey/kewDocument.h"
#include "colorkey/kewReading.h"
#include "netcdf/ncf.h"
#include "netcdf/remoteName.h"
#include "platform/Desktop.h"
#include "platform/WriteTurn.h"
#include "platform/files.h"
#include "section/drawItems.h"
#include "util/RuntimeError.h"
#include "util/lastError.h"
#include "util/numberText.h"
#include "util/ocxStrings.h"
#include "util/rounding.h"

namespace ModColor {
namespace {

const std::string& shownVariable() { return KelvaneMain::DrawItems(KelvaneMain::Item_shown).name; }

// The lists grow before anything is read, so that a division that fails midway has its place.
void takeIntoKey(int32_t k, const DivisionElement& division) {
  ColorKey.color.resizeKeeping(k);
  ColorKey.low.resizeKeeping(k);
  ColorKey.high.resizeKeeping(k);
  ColorKey.low(k) = division.low();
  ColorKey.high(k) = division.high();
  ColorKey.color(k) = division.color();
}

// The user's separator, although the reader takes the point alone: files have always been
// written so.
std::string boundText(float bound, const std::string& separator) {
  std::string text = util::losslessText(bound);
  const std::size_t point = text.find('.');
  if (point != std::string::npos) text.replace(point, 1, separator);
  return text;
}

// The tree says nothing when its memory ends, and a shortened key must not be saved over a whole
// one.
template <class Made>
Made made(Made result) {
  if (!result) throw std::bad_alloc();
  return result;
}

void appendText(pugi::xml_node parent, const char* name, const std::string& text) {
  pugi::xml_node element = made(parent.append_child(name));
  made(made(element.append_child(pugi::node_pcdata)).set_value(text.c_str()));
}

void appendKey(pugi::xml_node section, const std::string& variable) {
  // Divisions are counted in 16 bits.
  const int16_t count = util::roundToInteger(ColorKey.nDivision);
  const std::string separator = platform::desktop().DecimalSeparator();
  pugi::xml_node element = made(section.append_child("variable"));
  made(made(element.append_attribute("name")).set_value(variable.c_str()));
  for (int32_t i = 1; i <= count; ++i) {
    pugi::xml_node division = made(element.append_child("division"));
    appendText(division, "low", boundText(ColorKey.low(i), separator));
    appendText(division, "high", boundText(ColorKey.high(i), separator));
    appendText(division, "color", util::generalText(ColorKey.color(i)));
  }
}

std::string kewFileOf(std::string dataSet) {
  if (!dataSet.empty()) ocxStrings::ChangeExtension(dataSet, "KEW");
  return dataSet;
}

// Judged by the data set's name: the last point, from where on the KEW file's name is another, can
// lie in a password or before the protocol.
void refuseAddress(const std::string& dataSet) {
  if (!ocxNetNc::isAddress(dataSet)) return;
  const std::string shown = kewFileOf(ocxNetNc::withoutCredentials(dataSet));
  throw std::runtime_error("Cannot write \"" + shown + "\"");
}

void saveNew(const std::string& fileName, const std::string& variable) {
  KewDocument document;
  pugi::xml_node declaration = made(document.tree.append_child(pugi::node_declaration));
  made(made(declaration.append_attribute("version")).set_value("1.0"));
  appendKey(made(document.tree.append_child("section")), variable);
  document.save(fileName);
}

void replaceKey(const std::string& fileName, const std::string& variable) {
  KewDocument document;
  document.load(fileName);
  pugi::xml_node section = firstElement(document.tree, "section");
  if (!section) util::raise(util::kObjectNotSet);
  checkQueryable(variable);
  if (const pugi::xml_node old = firstVariable(section, variable)) {
    // One that stands deeper is no child to be removed.
    if (!section.remove_child(old)) util::raise(util::kInvalidCall);
  }
  appendKey(section, variable);
  document.save(fileName);
}

void replaceKeyTrapped(const std::string& fileName, const std::string& variable) {
  try {
    replaceKey(fileName, variable);
  } catch (...) {
    util::reportTagged("ModColor SaveExistingKew");
  }
}

}  // namespace

int32_t ReadKewCol(const std::string& fileName) {
  return readVariable(fileName, shownVariable(), takeIntoKey);
}

int32_t GetKewCol(const std::string& fileName) {
  try {
    return ReadKewCol(fileName);
  } catch (...) {
    util::reportTagged("ModColor GetKewCol");
    return -1;
  }
}

void SaveKEW() {
  try {
    const std::string& variable = shownVariable();
    const std::string fileName = ownKewFile();
    if (fileName.empty()) throw std::runtime_error("There is no data set");
    refuseAddress(ocxNetNc::ncf.NcFileName);
    const platform::WriteTurn turn(fileName);
    if (platform::fileExists(fileName)) {
      replaceKeyTrapped(fileName, variable);
    } else {
      saveNew(fileName, variable);
    }
  } catch (...) {
    util::reportTagged("ModColor SaveKEW");
  }
}

void SaveExistingKew(const std::string& fileName, const std::string& variable) {
  try {
    const platform::WriteTurn turn(fileName);
    replaceKey(fileName, variable);
  } catch (...) {
    util::reportTagged("ModColor SaveExistingKew");
  }
}

std::string ownKewFile() { return kewFileOf(ocxNetNc::ncf.NcFileName); }

}  // namespace ModColor
