#include "colorkey/frmVarName.h"

#include "colorkey/kewDocument.h"

namespace ModColor {

void frmVarName::filename(const std::string& name) {
  names_.clear();
  ListIndex = -1;
  try {
    KewDocument document;
    document.load(name);
    for (pugi::xml_node variable = firstElement(document.tree, "variable"); variable;
         variable = nextElement(variable, document.tree, "variable")) {
      names_.emplace_back(variable.attribute("name").value());
    }
  } catch (const std::runtime_error&) {
    names_.clear();
  }
}

void frmVarName::OK() {
  if (closed()) return;
  result_ = 1;
  const bool selected = ListIndex >= 0 && static_cast<std::size_t>(ListIndex) < names_.size();
  varname_ = selected ? names_[static_cast<std::size_t>(ListIndex)] : std::string();
  unload();
}

void frmVarName::Cancel() {
  if (closed()) return;
  result_ = -1;
  unload();
}

}  // namespace ModColor
