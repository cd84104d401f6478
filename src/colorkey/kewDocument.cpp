#include "colorkey/kewDocument.h"

#include <algorithm>
#include <set>

#include "colorkey/kewText.h"
#include "platform/files.h"
#include "util/ocxStrings.h"

namespace ModColor {
namespace {

constexpr std::size_t kLargestFile = std::size_t{256} * 1024 * 1024;
constexpr std::string_view kWhite = " \t\r\n";

// Also keeps what stands beside the document element, where only white space may.
constexpr unsigned kParseAll =
    (pugi::parse_full | pugi::parse_ws_pcdata | pugi::parse_fragment) & ~pugi::parse_doctype;

[[noreturn]] void malformed(const std::string& why) {
  throw KewMalformed("The file is no well-formed XML document: " + why);
}

bool isText(pugi::xml_node node) {
  return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

void checkTopLevel(const pugi::xml_document& tree) {
  int elements = 0;
  bool first = true;
  for (const pugi::xml_node node : tree.children()) {
    if (node.type() == pugi::node_element) ++elements;
    if (node.type() == pugi::node_declaration && !first) malformed("a declaration out of place");
    const bool white =
        node.type() == pugi::node_pcdata &&
        std::string_view(node.value()).find_first_not_of(kWhite) == std::string_view::npos;
    if (isText(node) && !white) malformed("text outside of the document element");
    first = false;
  }
  if (elements != 1) malformed("not one document element");
}

void checkAttributes(pugi::xml_node element) {
  std::set<std::string_view> names;
  for (const pugi::xml_attribute attribute : element.attributes()) {
    if (!names.insert(attribute.name()).second) malformed("an attribute that is there twice");
  }
}

// The document is written as UTF-8, whatever it was.
void declareUtf8(pugi::xml_document& tree) {
  pugi::xml_node declaration = tree.first_child();
  if (declaration.type() != pugi::node_declaration) return;
  pugi::xml_attribute encoding = declaration.attribute("encoding");
  if (encoding && !ocxStrings::equalNoCase(encoding.value(), "UTF-8")) encoding.set_value("UTF-8");
}

class StringWriter : public pugi::xml_writer {
 public:
  void write(const void* data, std::size_t size) override {
    written.append(static_cast<const char*>(data), size);
  }
  std::string written;
};

std::string contentsOf(const std::string& fileName) {
  try {
    return platform::readWholeFile(fileName, kLargestFile);
  } catch (const std::runtime_error& failure) {
    throw KewMalformed(failure.what());
  }
}

}  // namespace

void KewDocument::load(const std::string& fileName) {
  text_ = kewText(contentsOf(fileName));
  checkKewText(text_);
  const pugi::xml_parse_result result =
      tree.load_buffer_inplace(text_.data(), text_.size(), kParseAll, pugi::encoding_utf8);
  if (result.status == pugi::status_out_of_memory) throw std::bad_alloc();
  if (!result) malformed(result.description());
  checkTopLevel(tree);
  for (pugi::xml_node node = tree; node; node = nextInDocument(node, tree)) checkAttributes(node);
}

void KewDocument::save(const std::string& fileName) {
  declareUtf8(tree);
  StringWriter writer;
  tree.save(writer, "", pugi::format_raw, pugi::encoding_utf8);
  platform::writeWholeFile(fileName, writer.written);
}

pugi::xml_node nextInDocument(pugi::xml_node node, pugi::xml_node root) {
  if (node.first_child()) return node.first_child();
  while (node && node != root) {
    if (node.next_sibling()) return node.next_sibling();
    node = node.parent();
  }
  return {};
}

pugi::xml_node nextElement(pugi::xml_node node, pugi::xml_node root, std::string_view name) {
  do {
    node = nextInDocument(node, root);
  } while (node && (node.type() != pugi::node_element || node.name() != name));
  return node;
}

pugi::xml_node firstElement(pugi::xml_node root, std::string_view name) {
  return nextElement(root, root, name);
}

pugi::xml_node firstVariable(pugi::xml_node root, std::string_view name) {
  for (pugi::xml_node variable = firstElement(root, "variable"); variable;
       variable = nextElement(variable, root, "variable")) {
    const pugi::xml_attribute attribute = variable.attribute("name");
    if (attribute && attribute.value() == name) return variable;
  }
  return {};
}

std::string textOf(pugi::xml_node element) {
  std::string text;
  for (pugi::xml_node node = element; node; node = nextInDocument(node, element)) {
    if (isText(node)) text += node.value();
  }
  const std::size_t first = text.find_first_not_of(kWhite);
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(kWhite) - first + 1);
}

}  // namespace ModColor
