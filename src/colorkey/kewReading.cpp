#include "colorkey/kewReading.h"

#include "colorkey/xmlCharacters.h"
#include "util/RuntimeError.h"
#include "util/numberText.h"
#include "util/rounding.h"

namespace ModColor {
namespace {

double numberIn(pugi::xml_node division, std::string_view name) {
  const pugi::xml_node element = firstElement(division, name);
  if (!element) util::raise(util::kObjectNotSet);
  return util::leadingNumber(textOf(element));
}

}  // namespace

float DivisionElement::low() const { return util::storeSingle(numberIn(division_, "low")); }

float DivisionElement::high() const { return util::storeSingle(numberIn(division_, "high")); }

platform::Colour DivisionElement::color() const {
  return util::roundToLong(numberIn(division_, "color"));
}

int32_t readDivisions(pugi::xml_node variable, const TakeDivision& take) {
  int16_t k = 0;
  for (pugi::xml_node division = firstElement(variable, "division"); division;
       division = nextElement(division, variable, "division")) {
    k = util::addInteger(k, 1);
    take(k, DivisionElement(division));
  }
  return k;
}

int32_t readVariable(const std::string& fileName, const std::string& variable,
                     const TakeDivision& take) {
  checkQueryable(variable);
  KewDocument document;
  try {
    document.load(fileName);
  } catch (const KewMalformed&) {
    return -1;
  }
  const pugi::xml_node element = firstVariable(document.tree, variable);
  return element ? readDivisions(element, take) : -1;
}

void checkQueryable(const std::string& name) {
  if (name.find('"') != std::string::npos) util::raise(util::kInvalidCall);
}

}  // namespace ModColor
