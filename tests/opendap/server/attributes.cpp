#include "attributes.h"

#include <AttrTable.h>
#include <escaping.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <map>

#include "ServedArray.h"

namespace dapserver {
namespace {

const char* typeName(nc_type type) {
  switch (type) {
    case NC_BYTE:
    case NC_UBYTE:
      return "Byte";
    case NC_SHORT:
      return "Int16";
    case NC_USHORT:
      return "UInt16";
    case NC_INT:
      return "Int32";
    case NC_UINT:
      return "UInt32";
    case NC_FLOAT:
      return "Float32";
    case NC_DOUBLE:
      return "Float64";
    case NC_CHAR:
      return "String";
    default:
      return nullptr;
  }
}

// Digits enough to give the very same number back.
std::string numberText(double number, nc_type type) {
  if (std::isnan(number)) return "NaN";
  if (type == NC_BYTE && number < 0) number += 256;
  std::array<char, 40> text{};
  const int digits = type == NC_FLOAT ? 9 : 17;
  std::snprintf(text.data(), text.size(), "%.*g", digits, number);
  return text.data();
}

void addAttribute(const NcFile& file, int variable, const std::string& name,
                  libdap::AttrTable& table, const std::string& shownName) {
  nc_type type = NC_NAT;
  std::size_t length = 0;
  NcFile::check(nc_inq_att(file.id(), variable, name.c_str(), &type, &length));
  const char* const served = typeName(type);
  if (served == nullptr) return;
  if (type == NC_CHAR) {
    std::string text(length + 1, '\0');
    NcFile::check(nc_get_att_text(file.id(), variable, name.c_str(), text.data()));
    text.resize(std::min(text.find('\0'), length));
    table.append_attr(shownName, served, libdap::escattr(text));
    return;
  }
  std::vector<double> numbers(length + 1);
  NcFile::check(nc_get_att_double(file.id(), variable, name.c_str(), numbers.data()));
  for (std::size_t i = 0; i < length; ++i) {
    table.append_attr(shownName, served, numberText(numbers[i], type));
  }
}

void addAll(const NcFile& file, int variable, libdap::AttrTable& table) {
  std::map<std::string, libdap::AttrTable*> containers;
  for (const std::string& name : file.attributeNames(variable)) {
    const std::size_t dot = name.find('.');
    if (dot == std::string::npos || dot == 0) {
      addAttribute(file, variable, name, table, name);
      continue;
    }
    libdap::AttrTable*& container = containers[name.substr(0, dot)];
    if (container == nullptr) container = table.append_container(name.substr(0, dot));
    addAttribute(file, variable, name, *container, name.substr(dot + 1));
  }
}

}  // namespace

void addAttributes(const NcFile& file, libdap::DAS& das) {
  for (const NcFile::Variable& variable : file.variables()) {
    if (!canBeServed(variable)) continue;
    libdap::AttrTable& table = *das.add_table(libdap::id2www(variable.name), new libdap::AttrTable);
    addAll(file, variable.id, table);
    if (variable.type != NC_CHAR || variable.dimensions.empty()) continue;
    const NcFile::Dimension& width =
        file.dimensions()[static_cast<std::size_t>(variable.dimensions.back())];
    libdap::AttrTable& characters = *table.append_container("DODS");
    characters.append_attr("strlen", "Int32", std::to_string(width.length));
    characters.append_attr("dimName", "String", libdap::escattr(width.name));
  }
  addAll(file, NC_GLOBAL, *das.add_table("NC_GLOBAL", new libdap::AttrTable));
  for (const NcFile::Dimension& dimension : file.dimensions()) {
    if (!dimension.unlimited) continue;
    libdap::AttrTable& extra = *das.add_table("DODS_EXTRA", new libdap::AttrTable);
    extra.append_attr("Unlimited_Dimension", "String", libdap::escattr(dimension.name));
    break;  // DAP 2 clients know one
  }
}

}  // namespace dapserver
