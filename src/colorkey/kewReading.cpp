#include "colorkey/kewReading.h"

#include <utility>
#include <vector>

#include "colorkey/xmlCharacters.h"
#include "util/RuntimeError.h"
#include "util/numberText.h"
#include "util/rounding.h"

namespace ModColor {
namespace {

double numberIn(pugi::xml_node element) {
  if (!element) util::raise(util::kObjectNotSet);
  return util::leadingNumber(textOf(element));
}

// Collects the divisions below a variable in one walk, so that divisions within divisions cost no
// more than others.
class Collector {
 public:
  explicit Collector(pugi::xml_node variable) : variable_(variable) {}

  std::vector<DivisionElement> collect() {
    pugi::xml_node node = variable_.first_child();
    while (node) {
      enter(node);
      node = node.first_child() ? node.first_child() : leave(node);
    }
    return std::move(found_);
  }

 private:
  struct Open {
    pugi::xml_node division;
    std::size_t place;  // among the found
  };

  void enter(pugi::xml_node node) {
    if (node.type() != pugi::node_element) return;
    const std::string_view name = node.name();
    if (name == "division") {
      open_.push_back({node, found_.size()});
      found_.emplace_back();
    } else if (name == "low") {
      take(node, &DivisionElement::lowElement);
    } else if (name == "high") {
      take(node, &DivisionElement::highElement);
    } else if (name == "color") {
      take(node, &DivisionElement::colorElement);
    }
  }

  // The first one in a division is its own, whatever stands between them.
  void take(pugi::xml_node node, pugi::xml_node DivisionElement::*element) {
    for (const Open& open : open_) {
      pugi::xml_node& taken = found_[open.place].*element;
      if (!taken) taken = node;
    }
  }

  // The next node behind one without children, or one whose children are done; null at the end.
  pugi::xml_node leave(pugi::xml_node node) {
    while (node != variable_) {
      if (!open_.empty() && open_.back().division == node) open_.pop_back();
      if (node.next_sibling()) return node.next_sibling();
      node = node.parent();
    }
    return {};
  }

  pugi::xml_node variable_;
  std::vector<DivisionElement> found_;
  std::vector<Open> open_;
};

}  // namespace

float DivisionElement::low() const { return util::storeSingle(numberIn(lowElement)); }

float DivisionElement::high() const { return util::storeSingle(numberIn(highElement)); }

platform::Colour DivisionElement::color() const {
  return util::roundToLong(numberIn(colorElement));
}

int32_t readDivisions(pugi::xml_node variable, const TakeDivision& take) {
  int16_t k = 0;
  for (const DivisionElement& division : Collector(variable).collect()) {
    k = util::addInteger(k, 1);
    take(k, division);
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
