#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace ModColor {

// The tree of a KEW file, for its reader and writers. Everything of the file is in it: comments,
// processing instructions, unknown elements and attributes, all text.
class KewDocument {
 public:
  KewDocument() = default;
  KewDocument(const KewDocument&) = delete;
  KewDocument& operator=(const KewDocument&) = delete;

  // Loads a file. KewMalformed when it is missing, unreadable, larger than 64 MiB or no well-formed
  // XML; std::runtime_error when its elements are nested too deeply. The tree is empty then.
  void load(const std::string& fileName);
  // Writes it whole, as UTF-8 without indentation, or leaves the file as it was and throws
  // std::runtime_error; so too when it could not be loaded again.
  void save(const std::string& fileName);

  pugi::xml_document tree;

 private:
  std::string text_;  // the tree points into it
  std::string end_;   // white space behind the tree
};

// The next node of any kind behind this one in document order, within root; null at the end.
pugi::xml_node nextInDocument(pugi::xml_node node, pugi::xml_node root);

// The first element of a name below root in document order; null when there is none.
pugi::xml_node firstElement(pugi::xml_node root, std::string_view name);
// The next one behind node.
pugi::xml_node nextElement(pugi::xml_node node, pugi::xml_node root, std::string_view name);

// The first variable element below root whose name is exactly this.
pugi::xml_node firstVariable(pugi::xml_node root, std::string_view name);

// All text within an element, without white space around it.
std::string textOf(pugi::xml_node element);

}  // namespace ModColor
