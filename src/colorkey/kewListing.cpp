#include "colorkey/kewListing.h"

#include <set>

#include "colorkey/kewDocument.h"
#include "colorkey/kewReading.h"
#include "util/RuntimeError.h"

namespace ModColor {

std::vector<KewVariable> ListKewFile(const std::string& fileName) {
  KewDocument document;
  document.load(fileName);
  std::vector<KewVariable> variables;
  std::set<std::string> names;
  for (pugi::xml_node element = firstElement(document.tree, "variable"); element;
       element = nextElement(element, document.tree, "variable")) {
    KewVariable variable;
    variable.name = element.attribute("name").value();
    variable.ignored = !element.attribute("name") || !names.insert(variable.name).second;
    try {
      checkQueryable(variable.name);
      readDivisions(element, [&](int32_t, const DivisionElement& division) {
        variable.divisions.push_back(division.whole());
      });
    } catch (const util::RuntimeError& error) {
      variable.failure = error.what();
    }
    variables.push_back(std::move(variable));
  }
  return variables;
}

}  // namespace ModColor
