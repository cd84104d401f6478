#include "colorkey/kewDocument.h"

#include "colorkey/kewSyntax.h"
#include "colorkey/kewText.h"
#include "colorkey/xmlCharacters.h"
#include "platform/files.h"
#include "util/ocxStrings.h"

namespace ModColor {
namespace {

// The tree of a document takes up to sixteen times the memory of its text.
constexpr std::size_t kLargestFile = std::size_t{64} * 1024 * 1024;
constexpr std::string_view kWhite = " \t\r\n";

// Everything, with the white space between elements and around the document element.
constexpr unsigned kParseAll =
    (pugi::parse_full | pugi::parse_ws_pcdata | pugi::parse_fragment) & ~pugi::parse_doctype;

bool isText(pugi::xml_node node) {
  return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

// The document is written as UTF-8, whatever it was.
void declareUtf8(pugi::xml_document& tree) {
  pugi::xml_node declaration = tree.first_child();
  if (declaration.type() != pugi::node_declaration) return;
  pugi::xml_attribute encoding = declaration.attribute("encoding");
  if (encoding && !ocxStrings::equalNoCase(encoding.value(), "UTF-8")) encoding.set_value("UTF-8");
}

// A return that is left in a text came from a character reference, and would be read back as a
// line feed if it were not written as one again.
class StringWriter : public pugi::xml_writer {
 public:
  void write(const void* data, std::size_t size) override {
    for (std::string_view rest(static_cast<const char*>(data), size);;) {
      const std::size_t end = rest.find('\r');
      written += rest.substr(0, end);
      if (end == std::string_view::npos) return;
      written += "&#13;";
      rest.remove_prefix(end + 1);
    }
  }
  std::string written;
};

// Names of variables come from foreign data sets and may hold what XML cannot.
void checkReadable(const std::string& text) {
  try {
    checkKewSyntax(kewText(text));
  } catch (const KewMalformed&) {
    throw std::runtime_error("The variable's name cannot be written in XML");
  }
}

std::string contentsOf(const std::string& fileName) {
  try {
    return platform::readWholeFile(fileName, kLargestFile);
  } catch (const std::runtime_error& failure) {
    throw KewMalformed(failure.what());
  }
}

}  // namespace

void KewDocument::load(const std::string& fileName) {
  tree.reset();
  text_ = kewText(contentsOf(fileName));
  checkKewSyntax(text_);
  // The parser would drop the last character.
  end_ = text_.substr(text_.find_last_not_of(kWhite) + 1);
  text_.resize(text_.size() - end_.size());
  const pugi::xml_parse_result result =
      tree.load_buffer_inplace(text_.data(), text_.size(), kParseAll, pugi::encoding_utf8);
  if (result.status == pugi::status_out_of_memory) throw std::bad_alloc();
  if (!result) malformed(result.description());
}

void KewDocument::save(const std::string& fileName) {
  declareUtf8(tree);
  StringWriter writer;
  tree.save(writer, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
  const std::string text = std::move(writer.written) + end_;
  if (text.size() > kLargestFile) throw std::runtime_error("The key file would become too large");
  checkReadable(text);
  platform::writeWholeFile(fileName, text);
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
