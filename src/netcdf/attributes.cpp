#include "netcdf/attributes.h"

#include <algorithm>
#include <array>
#include <vector>

#include "netcdf/NetCDF.h"
#include "netcdf/routine.h"
#include "platform/texts.h"
#include "util/RuntimeError.h"
#include "util/numberText.h"
#include "util/ocxStrings.h"

namespace ocxNetNc {
namespace {

// The library finds an attribute by comparing all names: the time of reading them grows with the
// square of their number. No writer of data comes near this one.
constexpr int32_t kMostAttributes = 8192;

struct Attribute {
  std::string name;
  int32_t type = 0;
  std::string value;
};

// Whose attributes are read, and the words in which a failure says so.
struct Owner {
  int32_t variableId;
  std::string variableName;  // empty for the global attributes
  const char* whenReading;
  const char* typePiece;
};

std::string textOf(short value) { return util::generalText(int32_t{value}); }
std::string textOf(int value) { return util::generalText(int32_t{value}); }
std::string textOf(float value) { return util::losslessText(value); }
std::string textOf(double value) { return util::losslessText(value); }

template <class Number>
std::string numbersText(int (*read)(int, int, const char*, Number*), int32_t variableId,
                        const char* name, std::size_t length) {
  std::vector<Number> values(length + 1);  // an empty attribute needs an address too
  checked(read(ncf.NcId, variableId, name, values.data()));
  values.pop_back();
  std::string text;
  for (const Number value : values) {
    if (!text.empty()) text += "  ";
    text += textOf(value);
  }
  return text;
}

std::string charactersText(int32_t variableId, const char* name, std::size_t length) {
  std::string text(length + 1, '\0');
  checked(NetCDF::library.nc_get_att_text(ncf.NcId, variableId, name, text.data()));
  text.resize(std::min(text.find('\0'), length));
  return platform::textToUtf8(text);
}

std::string valueText(nc_type type, int32_t variableId, const char* name, std::size_t length) {
  const NetCDF::EntryPoints& library = NetCDF::library;
  if (length > static_cast<std::size_t>(kMostElements)) util::raise(util::kOutOfMemory);
  switch (type) {
    case NC_CHAR:
      return charactersText(variableId, name, length);
    case NC_BYTE:
    case NC_SHORT:
      return numbersText(library.nc_get_att_short, variableId, name, length);
    case NC_INT:
      return numbersText(library.nc_get_att_int, variableId, name, length);
    case NC_FLOAT:
      return numbersText(library.nc_get_att_float, variableId, name, length);
    case NC_DOUBLE:
      return numbersText(library.nc_get_att_double, variableId, name, length);
    default:
      return {};
  }
}

Attribute readAttribute(const Owner& owner, int32_t number) {
  const NetCDF::EntryPoints& library = NetCDF::library;
  std::array<char, NC_MAX_NAME + 1> name{};
  checked(library.nc_inq_attname(ncf.NcId, owner.variableId, number, name.data()));
  Attribute attribute{.name = limitedName(name.data(), owner.whenReading), .type = 0, .value = ""};

  nc_type type = NC_NAT;
  std::size_t length = 0;
  checked(library.nc_inq_att(ncf.NcId, owner.variableId, name.data(), &type, &length));
  attribute.type = type;
  // An OPeNDAP container that arrives as an attribute has no type and no value.
  if (type == NC_NAT && attribute.name == "DODS") return attribute;
  if (type < NC_BYTE || type > NC_DOUBLE) {
    throw DataProblem(joinPieces(
        {"Variable-Type of Attribute not expected:", "Variable Name = " + owner.variableName,
         "Attribute Name = " + attribute.name,
         owner.typePiece + util::generalText(attribute.type)}));
  }
  attribute.value = valueText(type, owner.variableId, name.data(), length);
  return attribute;
}

// What an attribute says about its variable.
void apply(const Attribute& attribute, NcVar& variable) {
  const std::string& value = attribute.value;
  const auto named = [&](const char* keyword) {
    return ocxStrings::hasPrefix(attribute.name, keyword);
  };
  if (named("SCALE")) variable.Scale = util::leadingNumber(value);
  if (named("MISSING")) variable.Missing = util::leadingNumber(value);
  if (named("_FILL")) variable.Missing = util::leadingNumber(value);
  if (named("ADD_OFF")) variable.Offset = util::leadingNumber(value);
  if (named("VALID")) {
    int32_t position = 0;
    variable.ValidMin = ocxStrings::NextNumber(value, position);
    variable.ValidMax = ocxStrings::NextNumber(value, position);
  }
  if (named("UNIT")) variable.Unit = value;
  if (named("LONG_NAME")) variable.LongName = value;
}

}  // namespace

std::string limitedName(const char* name, const char* whenReading) {
  const std::string_view stored(name);
  if (stored.size() > static_cast<std::size_t>(kNameLimit)) {
    throw DataProblem(platform::textToUtf8(stored) + " nc& > 45 " + whenReading);
  }
  return platform::textToUtf8(stored);
}

void readAttributes(NcVar& variable, int32_t variableId) {
  int count = 0;
  checked(NetCDF::library.nc_inq_varnatts(ncf.NcId, variableId, &count));
  if (count > kAttributeLimit) {
    throw DataProblem(
        joinPieces({"Number of attribute exceeds the limit(=15) for", "Variable: " + variable.Name,
                    "Number of attribute = " + util::generalText(int32_t{count})}));
  }
  variable.NAtts = count;
  const Owner owner{variableId, variable.Name, "in reading attribute name", "Type Number = "};
  for (int32_t number = 0; number < count; ++number) {
    const Attribute attribute = readAttribute(owner, number);
    const auto place = static_cast<std::size_t>(number);
    variable.AttName[place] = attribute.name;
    variable.AttType[place] = attribute.type;
    variable.AttValue[place] = attribute.value;
    apply(attribute, variable);
  }
}

void readGlobalAttributes() {
  int count = 0;
  checked(NetCDF::library.nc_inq_natts(ncf.NcId, &count));
  if (count > kMostAttributes) util::raise(util::kOutOfMemory);
  ncf.NcNGAtts = count;
  ncf.NcGAttName.assign(count);
  ncf.NcGAttValue.assign(count);
  ncf.NcGAttType.assign(count);
  const Owner owner{NC_GLOBAL, "", "in reading Global attributes name", "Tyep Number = "};
  for (int32_t number = 0; number < count; ++number) {
    const Attribute attribute = readAttribute(owner, number);
    ncf.NcGAttName(number + 1) = attribute.name;
    ncf.NcGAttType(number + 1) = attribute.type;
    ncf.NcGAttValue(number + 1) = attribute.value;
  }
}

}  // namespace ocxNetNc
