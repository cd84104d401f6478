#include "ServedArray.h"

#include <Byte.h>
#include <Float32.h>
#include <Float64.h>
#include <Int16.h>
#include <Int32.h>
#include <InternalErr.h>
#include <Str.h>
#include <UInt16.h>
#include <UInt32.h>

#include <memory>

namespace dapserver {
namespace {

// The DAP 2 type of a netCDF one; null when there is none. DAP 2 knows unsigned bytes only.
std::unique_ptr<libdap::BaseType> element(const std::string& name, nc_type type) {
  switch (type) {
    case NC_BYTE:
    case NC_UBYTE:
      return std::make_unique<libdap::Byte>(name);
    case NC_SHORT:
      return std::make_unique<libdap::Int16>(name);
    case NC_USHORT:
      return std::make_unique<libdap::UInt16>(name);
    case NC_INT:
      return std::make_unique<libdap::Int32>(name);
    case NC_UINT:
      return std::make_unique<libdap::UInt32>(name);
    case NC_FLOAT:
      return std::make_unique<libdap::Float32>(name);
    case NC_DOUBLE:
      return std::make_unique<libdap::Float64>(name);
    case NC_CHAR:
    case NC_STRING:
      return std::make_unique<libdap::Str>(name);
    default:
      return nullptr;
  }
}

std::string textUpToZero(const char* text, std::size_t length) {
  const std::string whole(text, length);
  return whole.substr(0, whole.find('\0'));
}

}  // namespace

ServedArray::ServedArray(const NcFile& file, const NcFile::Variable& variable)
    : Array(variable.name, element(variable.name, variable.type).get()),
      file_(&file),
      variable_(variable) {
  for (std::size_t place = 0; place < servedRank(variable); ++place) {
    const NcFile::Dimension& axis =
        file.dimensions()[static_cast<std::size_t>(variable.dimensions[place])];
    append_dim(static_cast<int>(axis.length), axis.name);
  }
}

template <class Number>
void ServedArray::readNumbers() {
  std::vector<std::size_t> start, count;
  std::vector<std::ptrdiff_t> stride;
  for (Dim_iter at = dim_begin(); at != dim_end(); ++at) {
    start.push_back(static_cast<std::size_t>(dimension_start(at, true)));
    count.push_back(static_cast<std::size_t>(dimension_size(at, true)));
    stride.push_back(dimension_stride(at, true));
  }
  std::vector<Number> numbers(static_cast<std::size_t>(length()));
  NcFile::check(nc_get_vars(file_->id(), variable_.id, start.data(), count.data(), stride.data(),
                            numbers.data()));
  val2buf(numbers.data());
}

// Texts are few and short: all are read, and those that are wanted are taken.
void ServedArray::readStrings() {
  std::size_t whole = 1;
  for (const int axis : variable_.dimensions) {
    whole *= file_->dimensions()[static_cast<std::size_t>(axis)].length;
  }
  const std::size_t width =
      file_->dimensions()[static_cast<std::size_t>(variable_.dimensions.back())].length;
  std::vector<char> characters(whole + 1);
  NcFile::check(nc_get_var_text(file_->id(), variable_.id, characters.data()));

  std::vector<std::size_t> chosen = {0};
  for (Dim_iter at = dim_begin(); at != dim_end(); ++at) {
    std::vector<std::size_t> further;
    for (const std::size_t base : chosen) {
      for (int i = dimension_start(at, true); i <= dimension_stop(at, true);
           i += dimension_stride(at, true)) {
        further.push_back(base * static_cast<std::size_t>(dimension_size(at)) +
                          static_cast<std::size_t>(i));
      }
    }
    chosen = further;
  }
  std::vector<std::string> texts;
  for (const std::size_t place : chosen) {
    texts.push_back(textUpToZero(characters.data() + place * width, width));
  }
  set_value(texts, static_cast<int>(texts.size()));
}

bool ServedArray::read() {
  if (read_p()) return true;
  switch (variable_.type) {
    case NC_BYTE:
    case NC_UBYTE:
      readNumbers<libdap::dods_byte>();
      break;
    case NC_SHORT:
    case NC_USHORT:
      readNumbers<libdap::dods_int16>();
      break;
    case NC_INT:
    case NC_UINT:
      readNumbers<libdap::dods_int32>();
      break;
    case NC_FLOAT:
      readNumbers<libdap::dods_float32>();
      break;
    case NC_DOUBLE:
      readNumbers<libdap::dods_float64>();
      break;
    case NC_CHAR:
      readStrings();
      break;
    default:
      throw libdap::InternalErr(__FILE__, __LINE__, "no such arrays are served");
  }
  set_read_p(true);
  return true;
}

bool canBeServed(const NcFile::Variable& variable) {
  if (variable.type == NC_STRING) return variable.dimensions.empty();
  return element("", variable.type) != nullptr;
}

std::size_t servedRank(const NcFile::Variable& variable) {
  const std::size_t rank = variable.dimensions.size();
  return variable.type == NC_CHAR && rank > 0 ? rank - 1 : rank;
}

std::unique_ptr<libdap::BaseType> servedScalar(const NcFile& file,
                                               const NcFile::Variable& variable) {
  std::unique_ptr<libdap::BaseType> scalar = element(variable.name, variable.type);
  if (variable.type == NC_CHAR) {
    std::size_t length = 1;
    if (!variable.dimensions.empty()) {
      length = file.dimensions()[static_cast<std::size_t>(variable.dimensions.front())].length;
    }
    std::vector<char> characters(length + 1);
    NcFile::check(nc_get_var_text(file.id(), variable.id, characters.data()));
    std::string text = textUpToZero(characters.data(), length);
    scalar->val2buf(&text);
  } else if (variable.type == NC_STRING) {
    char* stored = nullptr;
    NcFile::check(nc_get_var_string(file.id(), variable.id, &stored));
    std::string text = stored == nullptr ? "" : stored;
    nc_free_string(1, &stored);
    scalar->val2buf(&text);
  } else {
    double number = 0;  // room for every type
    NcFile::check(nc_get_var(file.id(), variable.id, &number));
    scalar->val2buf(&number);
  }
  scalar->set_read_p(true);
  return scalar;
}

}  // namespace dapserver
