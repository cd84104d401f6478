#include "diagnosis/headerFacts.h"

#include <algorithm>

#include "failures.h"
#include "header/readHeader.h"
#include "platform/texts.h"
#include "util/numberText.h"
#include "util/ocxStrings.h"

namespace cli::diagnosis {
namespace {

// No axis is longer; a damaged header may say so.
constexpr double kMostCoordinates = 1 << 24;

void require(int status) {
  if (status != NC_NOERR) throw Failure(nc_strerror(status));
}

void makeUtf8(std::string& text) { text = platform::textToUtf8(text); }

void makeUtf8(Attributes& attributes) {
  for (Attribute& attribute : attributes) {
    makeUtf8(attribute.name);
    makeUtf8(attribute.text);
  }
}

}  // namespace

Header readShownHeader(int ncid) {
  Header header = readHeader(ncid, require);
  for (Dimension& dimension : header.dims) makeUtf8(dimension.name);
  for (Variable& variable : header.vars) {
    makeUtf8(variable.name);
    makeUtf8(variable.attributes);
  }
  makeUtf8(header.globals);
  for (Group& group : header.groups) makeUtf8(group.path);
  return header;
}

const Attribute* keyword(const Variable& variable, std::string_view wanted) {
  const Attribute* found = nullptr;
  for (const Attribute& attribute : variable.attributes) {
    if (ocxStrings::hasPrefix(attribute.name, wanted)) found = &attribute;
  }
  return found;
}

std::string keywordText(const Variable& variable, std::string_view wanted) {
  const Attribute* found = keyword(variable, wanted);
  return found == nullptr ? std::string() : valueText(*found);
}

std::string valueText(const Attribute& attribute) {
  if (attribute.isText()) return attribute.text;
  std::string text;
  for (const double number : attribute.numbers) {
    if (!text.empty()) text += "  ";
    text += attribute.type == NC_FLOAT ? util::losslessText(static_cast<float>(number))
                                       : util::losslessText(number);
  }
  return text;
}

const Dimension& dimensionOf(const Header& header, int dimension) {
  return header.dims[static_cast<std::size_t>(dimension)];
}

bool has(const Variable& variable, int dimension) {
  return std::ranges::find(variable.dims, dimension) != variable.dims.end();
}

std::string shapeOf(const Header& header, const Variable& variable) {
  std::string text;
  for (const int dimension : variable.dims) {
    text += (text.empty() ? "" : ", ") + dimensionOf(header, dimension).name;
  }
  return "(" + text + ")";
}

double elementsOf(const Header& header, const Variable& variable) {
  double elements = 1;
  for (const int dimension : variable.dims) {
    elements *= static_cast<double>(dimensionOf(header, dimension).length);
  }
  return elements;
}

std::vector<double> readCoordinate(const Header& header, int variable) {
  const Variable& coordinate = header.vars[static_cast<std::size_t>(variable)];
  const double elements = elementsOf(header, coordinate);
  if (elements < 1 || elements > kMostCoordinates) return {};
  std::vector<double> values(static_cast<std::size_t>(elements));
  const int status = nc_get_var_double(coordinate.group, coordinate.id, values.data());
  if (status != NC_NOERR && status != NC_ERANGE) return {};
  return values;
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
