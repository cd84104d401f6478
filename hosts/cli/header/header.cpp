#include "header/header.h"

#include <algorithm>

namespace cli {
namespace {

template <class List>
int placeOf(const List& list, std::string_view name) {
  for (std::size_t at = 0; at < list.size(); ++at) {
    if (list[at].name == name) return static_cast<int>(at);
  }
  return -1;
}

}  // namespace

const Attribute* find(const Attributes& attributes, std::string_view name) {
  const int at = placeOf(attributes, name);
  return at < 0 ? nullptr : &attributes[static_cast<std::size_t>(at)];
}

std::string textOf(const Attributes& attributes, std::string_view name) {
  const Attribute* found = find(attributes, name);
  return found == nullptr ? std::string() : found->text;
}

double numberOf(const Attributes& attributes, std::string_view name, double otherwise) {
  const Attribute* found = find(attributes, name);
  return found == nullptr || found->numbers.empty() ? otherwise : found->numbers.front();
}

void set(Attributes& attributes, Attribute attribute) {
  const int at = placeOf(attributes, attribute.name);
  if (at < 0) {
    attributes.push_back(std::move(attribute));
  } else {
    attributes[static_cast<std::size_t>(at)] = std::move(attribute);
  }
}

void setText(Attributes& attributes, const std::string& name, const std::string& text) {
  set(attributes, {.name = name, .type = NC_CHAR, .text = text, .numbers = {}});
}

void remove(Attributes& attributes, std::string_view name) {
  std::erase_if(attributes, [&](const Attribute& attribute) { return attribute.name == name; });
}

int Header::variable(std::string_view name) const { return placeOf(vars, name); }
int Header::dimension(std::string_view name) const { return placeOf(dims, name); }

bool isWhole(nc_type type) {
  return type != NC_CHAR && type != NC_FLOAT && type != NC_DOUBLE && type != NC_STRING;
}

std::string typeName(nc_type type) {
  static constexpr const char* names[] = {"none",  "byte",   "char",  "short",  "int",
                                          "float", "double", "ubyte", "ushort", "uint",
                                          "int64", "uint64", "string"};
  if (type >= NC_NAT && type <= NC_STRING) return names[type];
  return "type " + std::to_string(type);
}

}  // namespace cli
