#include "diagnosis/SetHeader.h"

#include <netcdf.h>

#include <algorithm>
#include <array>

#include "failures.h"
#include "platform/texts.h"
#include "util/numberText.h"
#include "util/ocxStrings.h"

namespace cli::diagnosis {
namespace {

// No attribute worth listing and no axis is longer; a damaged header may say so.
constexpr std::size_t kMostInAttribute = std::size_t{1} << 20;
constexpr double kMostCoordinates = 1 << 24;

// The library's time for reading them grows with the square of their number.
constexpr int kMostAttributes = 8192;

using Name = std::array<char, NC_MAX_NAME + 1>;

void require(int status) {
  if (status != NC_NOERR) throw Failure(nc_strerror(status));
}

std::string charactersOf(int ncid, int variable, const char* name, std::size_t length) {
  std::string text(length + 1, '\0');
  require(nc_get_att_text(ncid, variable, name, text.data()));
  text.resize(std::min(text.find('\0'), length));
  return platform::textToUtf8(text);
}

std::string stringsOf(int ncid, int variable, const char* name, std::size_t length) {
  std::vector<char*> strings(length + 1, nullptr);
  require(nc_get_att_string(ncid, variable, name, strings.data()));
  std::string text;
  for (std::size_t at = 0; at < length; ++at) {
    if (at > 0) text += "  ";
    if (strings[at] != nullptr) text += platform::textToUtf8(strings[at]);
  }
  nc_free_string(length, strings.data());
  return text;
}

std::string joined(std::size_t count, const auto& textOf) {
  std::string text;
  for (std::size_t at = 0; at < count; ++at) {
    if (at > 0) text += "  ";
    text += textOf(at);
  }
  return text;
}

std::string valueText(int ncid, int variable, const char* name, int type, std::size_t length) {
  if (length > kMostInAttribute) return {};
  if (type == NC_CHAR) return charactersOf(ncid, variable, name, length);
  if (type == NC_STRING) return stringsOf(ncid, variable, name, length);
  if (type == NC_FLOAT) {
    std::vector<float> values(length + 1);
    require(nc_get_att_float(ncid, variable, name, values.data()));
    return joined(length, [&](std::size_t at) { return util::losslessText(values[at]); });
  }
  if (type == NC_DOUBLE) {
    std::vector<double> values(length + 1);
    require(nc_get_att_double(ncid, variable, name, values.data()));
    return joined(length, [&](std::size_t at) { return util::losslessText(values[at]); });
  }
  if (type == NC_UINT64) {
    std::vector<unsigned long long> values(length + 1);
    require(nc_get_att_ulonglong(ncid, variable, name, values.data()));
    return joined(length, [&](std::size_t at) { return std::to_string(values[at]); });
  }
  if (type > NC_NAT && type < NC_STRING) {
    std::vector<long long> values(length + 1);
    require(nc_get_att_longlong(ncid, variable, name, values.data()));
    return joined(length, [&](std::size_t at) { return std::to_string(values[at]); });
  }
  return {};
}

SetHeader::Attribute attributeOf(int ncid, int variable, int number) {
  Name name{};
  require(nc_inq_attname(ncid, variable, number, name.data()));
  SetHeader::Attribute attribute;
  attribute.name = platform::textToUtf8(name.data());
  require(nc_inq_att(ncid, variable, name.data(), &attribute.type, &attribute.length));
  attribute.text = valueText(ncid, variable, name.data(), attribute.type, attribute.length);
  return attribute;
}

std::vector<SetHeader::Attribute> attributesOf(int ncid, int variable, int count) {
  if (count > kMostAttributes) {
    throw Failure("There are too many attributes: " + std::to_string(count) + ".");
  }
  std::vector<SetHeader::Attribute> attributes;
  for (int number = 0; number < count; ++number) {
    attributes.push_back(attributeOf(ncid, variable, number));
  }
  return attributes;
}

SetHeader::Variable variableOf(int ncid, int id, std::size_t dimensions) {
  SetHeader::Variable variable;
  Name name{};
  int rank = 0, attributes = 0;
  require(nc_inq_varname(ncid, id, name.data()));
  require(nc_inq_vartype(ncid, id, &variable.type));
  require(nc_inq_varndims(ncid, id, &rank));
  require(nc_inq_varnatts(ncid, id, &attributes));
  variable.name = platform::textToUtf8(name.data());
  variable.dimensions.resize(static_cast<std::size_t>(rank) + 1);
  require(nc_inq_vardimid(ncid, id, variable.dimensions.data()));
  variable.dimensions.pop_back();
  for (const int dimension : variable.dimensions) {
    if (dimension < 0 || static_cast<std::size_t>(dimension) >= dimensions) {
      throw Failure("Variable `" + variable.name + "` has a dimension that the data set has not.");
    }
  }
  variable.attributes = attributesOf(ncid, id, attributes);
  return variable;
}

void readDimensions(int ncid, SetHeader& header) {
  int count = 0, unlimited = -1;
  require(nc_inq_ndims(ncid, &count));
  require(nc_inq_unlimdim(ncid, &unlimited));
  for (int id = 0; id < count; ++id) {
    Name name{};
    SetHeader::Dimension dimension;
    require(nc_inq_dim(ncid, id, name.data(), &dimension.length));
    dimension.name = platform::textToUtf8(name.data());
    dimension.unlimited = id == unlimited;
    header.dimensions.push_back(dimension);
  }
}

void countGroups(int ncid, SetHeader& header) {
  int count = 0;
  if (nc_inq_grps(ncid, &count, nullptr) != NC_NOERR || count < 1) return;
  header.groups = count;
  std::vector<int> groups(static_cast<std::size_t>(count));
  if (nc_inq_grps(ncid, &count, groups.data()) != NC_NOERR) return;
  for (const int group : groups) {
    int variables = 0;
    if (nc_inq_nvars(group, &variables) == NC_NOERR) header.groupVariables += variables;
  }
}

}  // namespace

std::string SetHeader::Variable::attribute(std::string_view wanted) const {
  const auto found = std::ranges::find(attributes, wanted, &Attribute::name);
  return found == attributes.end() ? std::string() : found->text;
}

const SetHeader::Attribute* SetHeader::Variable::keyword(std::string_view wanted) const {
  const Attribute* found = nullptr;
  for (const Attribute& attribute : attributes) {
    if (ocxStrings::hasPrefix(attribute.name, wanted)) found = &attribute;
  }
  return found;
}

bool SetHeader::Variable::has(int dimension) const {
  return std::ranges::find(dimensions, dimension) != dimensions.end();
}

std::string SetHeader::shapeOf(const Variable& variable) const {
  std::string text;
  for (const int dimension : variable.dimensions) {
    text += (text.empty() ? "" : ", ") + dimensions[static_cast<std::size_t>(dimension)].name;
  }
  return "(" + text + ")";
}

double SetHeader::elementsOf(const Variable& variable) const {
  double elements = 1;
  for (const int dimension : variable.dimensions) {
    elements *= static_cast<double>(dimensions[static_cast<std::size_t>(dimension)].length);
  }
  return elements;
}

SetHeader readHeader(int ncid) {
  SetHeader header;
  require(nc_inq_format(ncid, &header.format));
  readDimensions(ncid, header);
  int variables = 0, attributes = 0;
  require(nc_inq_nvars(ncid, &variables));
  require(nc_inq_natts(ncid, &attributes));
  for (int id = 0; id < variables; ++id) {
    header.variables.push_back(variableOf(ncid, id, header.dimensions.size()));
  }
  header.attributes = attributesOf(ncid, NC_GLOBAL, attributes);
  countGroups(ncid, header);
  return header;
}

std::vector<double> readCoordinate(int ncid, const SetHeader& header, int variable) {
  const SetHeader::Variable& coordinate = header.variables[static_cast<std::size_t>(variable)];
  const double elements = header.elementsOf(coordinate);
  if (elements < 1 || elements > kMostCoordinates) return {};
  std::vector<double> values(static_cast<std::size_t>(elements));
  const int status = nc_get_var_double(ncid, variable, values.data());
  if (status != NC_NOERR && status != NC_ERANGE) return {};
  return values;
}

std::string typeName(int type) {
  static constexpr const char* names[] = {"none",  "byte",   "char",  "short",  "int",
                                          "float", "double", "ubyte", "ushort", "uint",
                                          "int64", "uint64", "string"};
  if (type >= NC_NAT && type <= NC_STRING) return names[type];
  return "type " + std::to_string(type);
}

std::string formatName(int format) {
  switch (format) {
    case NC_FORMAT_CLASSIC:
      return "classic";
    case NC_FORMAT_64BIT_OFFSET:
      return "64-bit offset";
    case NC_FORMAT_CDF5:
      return "CDF-5";
    case NC_FORMAT_NETCDF4:
      return "netCDF-4";
    case NC_FORMAT_NETCDF4_CLASSIC:
      return "netCDF-4 classic model";
    default:
      return "netCDF";
  }
}

}  // namespace cli::diagnosis
