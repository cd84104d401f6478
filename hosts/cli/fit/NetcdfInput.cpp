#include "fit/NetcdfInput.h"

#include <algorithm>
#include <cstring>

#include "failures.h"
#include "netcdf/classicHeader.h"
#include "netcdf/remoteAdvice.h"
#include "netcdf/remoteName.h"

namespace cli::fit {
namespace {

// The most strings of a variable that are looked at, and values of an attribute.
constexpr std::size_t kMostStrings = std::size_t{1} << 20;
constexpr std::size_t kMostNumbers = std::size_t{1} << 20;
// What is held of the chunks of a compressed variable, in bytes: those of all levels of a step.
constexpr std::size_t kChunkCache = std::size_t{64} << 20;
constexpr std::size_t kChunkSlots = 10007;

// Strings that the library allocated.
class Strings {
 public:
  explicit Strings(std::size_t count) : texts_(count, nullptr) {}
  ~Strings() { nc_free_string(texts_.size(), texts_.data()); }
  Strings(const Strings&) = delete;
  Strings& operator=(const Strings&) = delete;

  char** data() { return texts_.data(); }
  std::string_view operator[](std::size_t at) const {
    return texts_[at] == nullptr ? std::string_view() : texts_[at];
  }
  std::size_t size() const { return texts_.size(); }

 private:
  std::vector<char*> texts_;
};

std::size_t productOf(const std::vector<std::size_t>& count, std::size_t first) {
  std::size_t product = 1;
  for (std::size_t at = 0; at < first; ++at) product *= count[at];
  return product;
}

}  // namespace

NetcdfInput::NetcdfInput(const std::string& name) : name_(name) {
  if (ocxNetNc::isAddress(name)) {
    check(nc_open(ocxNetNc::libraryName(name).c_str(), NC_NOWRITE, &id_));
  } else {
    switch (ocxNetNc::checkClassicHeader(name)) {
      case ocxNetNc::HeaderState::Sound:
        break;
      case ocxNetNc::HeaderState::Broken:
        check(NC_ENOTNC);
        break;
      case ocxNetNc::HeaderState::CutShort:
        throw Failure(name + ": the file ends before its data.");
    }
    check(nc_open(name.c_str(), NC_NOWRITE, &id_));
  }
  try {
    readHeader();
  } catch (...) {
    nc_close(id_);
    throw;
  }
}

NetcdfInput::~NetcdfInput() { nc_close(id_); }

void NetcdfInput::check(int status) const {
  if (status == NC_NOERR) return;
  std::string text = ocxNetNc::withoutCredentials(name_) + ": " + nc_strerror(status);
  if (ocxNetNc::isAddress(name_)) text += "\n" + ocxNetNc::remoteAdvice(status);
  throw Failure(text);
}

void NetcdfInput::readHeader() {
  int dims = 0, vars = 0, unlimited = 0;
  check(nc_inq_ndims(id_, &dims));
  check(nc_inq_nvars(id_, &vars));
  std::vector<int> unlimitedIds;
  if (nc_inq_unlimdims(id_, &unlimited, nullptr) == NC_NOERR && unlimited > 0) {
    unlimitedIds.resize(static_cast<std::size_t>(unlimited));
    check(nc_inq_unlimdims(id_, &unlimited, unlimitedIds.data()));
  }
  for (int dim = 0; dim < dims; ++dim) {
    char name[NC_MAX_NAME + 1] = {};
    std::size_t length = 0;
    check(nc_inq_dim(id_, dim, name, &length));
    header_.dims.push_back(
        {name, length, std::ranges::find(unlimitedIds, dim) != unlimitedIds.end()});
  }
  header_.globals = attributes(NC_GLOBAL);
  for (int variable = 0; variable < vars; ++variable) addVariable(variable);
  int groups = 0;
  if (nc_inq_grps(id_, &groups, nullptr) == NC_NOERR && groups > 0) {
    std::vector<int> ids(static_cast<std::size_t>(groups));
    check(nc_inq_grps(id_, &groups, ids.data()));
    for (const int group : ids) {
      char name[NC_MAX_NAME + 1] = {};
      check(nc_inq_grpname(group, name));
      header_.leftOut.push_back(std::string("group ") + name);
    }
  }
}

Attributes NetcdfInput::attributes(int variable) const {
  Attributes found;
  int count = 0;
  check(variable == NC_GLOBAL ? nc_inq_natts(id_, &count) : nc_inq_varnatts(id_, variable, &count));
  for (int at = 0; at < count; ++at) {
    char name[NC_MAX_NAME + 1] = {};
    Attribute attribute;
    std::size_t length = 0;
    check(nc_inq_attname(id_, variable, at, name));
    check(nc_inq_att(id_, variable, name, &attribute.type, &length));
    attribute.name = name;
    if (length > kMostNumbers) throw Failure("The attribute " + attribute.name + " is too long.");
    if (attribute.type == NC_CHAR) {
      attribute.text.resize(length);
      if (length > 0) check(nc_get_att_text(id_, variable, name, attribute.text.data()));
      attribute.text = attribute.text.substr(0, attribute.text.find('\0'));
    } else if (attribute.type == NC_STRING) {
      Strings strings(length);
      if (length > 0) check(nc_get_att_string(id_, variable, name, strings.data()));
      for (std::size_t k = 0; k < length; ++k) {
        attribute.text.append(k > 0 ? ", " : "").append(strings[k]);
      }
    } else if (attribute.type > NC_NAT && attribute.type < NC_STRING) {
      attribute.numbers.resize(length);
      if (length > 0) check(nc_get_att_double(id_, variable, name, attribute.numbers.data()));
    } else {
      continue;  // containers that servers make of attributes, and types that users made
    }
    found.push_back(std::move(attribute));
  }
  return found;
}

void NetcdfInput::addVariable(int id) {
  Variable variable;
  char name[NC_MAX_NAME + 1] = {};
  int dims = 0;
  check(nc_inq_var(id_, id, name, &variable.type, &dims, nullptr, nullptr));
  variable.name = name;
  variable.dims.resize(static_cast<std::size_t>(dims));
  check(nc_inq_vardimid(id_, id, variable.dims.data()));
  if (variable.type <= NC_NAT || variable.type > NC_STRING) {
    header_.leftOut.push_back("variable " + variable.name + " (a type of its own)");
    return;
  }
  variable.attributes = attributes(id);
  if (variable.type == NC_STRING) {
    const std::size_t width = widestString(id, variable.dims);
    if (width == 0) {
      header_.leftOut.push_back("variable " + variable.name + " (strings beyond counting)");
      return;
    }
    variable.type = NC_CHAR;
    variable.ofStrings = true;
    variable.dims.push_back(static_cast<int>(header_.dims.size()));
    header_.dims.push_back({"width_of_" + variable.name, width, false});
  } else if (dims > 0) {
    // Only files of the newer formats have chunks; the others refuse.
    static_cast<void>(nc_set_var_chunk_cache(id_, id, kChunkCache, kChunkSlots, 0.75F));
  }
  ids_.push_back(id);
  header_.vars.push_back(std::move(variable));
}

// 0 when there are too many to look at.
std::size_t NetcdfInput::widestString(int id, const std::vector<int>& dims) const {
  std::size_t all = 1;
  for (const int dim : dims) {
    const std::size_t length = header_.dims[static_cast<std::size_t>(dim)].length;
    if (length > 0 && all > kMostStrings / length) return 0;
    all *= length;
  }
  std::size_t width = 1;
  if (all == 0) return width;
  Strings strings(all);
  check(nc_get_var_string(id_, id, strings.data()));
  for (std::size_t at = 0; at < all; ++at) width = std::max(width, strings[at].size());
  return width;
}

void NetcdfInput::readStrings(int variable, const std::vector<std::size_t>& start,
                              const std::vector<std::size_t>& count, double* values) const {
  const std::size_t last = count.size() - 1, from = start[last], width = count[last];
  Strings strings(productOf(count, last));
  check(nc_get_vara_string(id_, ids_[static_cast<std::size_t>(variable)], start.data(),
                           count.data(), strings.data()));
  for (std::size_t row = 0; row < strings.size(); ++row) {
    const std::string_view text = strings[row];
    for (std::size_t at = 0; at < width; ++at) {
      const bool inside = from + at < text.size();
      *values++ = inside ? static_cast<double>(static_cast<unsigned char>(text[from + at])) : 0.0;
    }
  }
}

void NetcdfInput::read(int variable, const std::vector<std::size_t>& start,
                       const std::vector<std::size_t>& count, double* values) const {
  const Variable& described = header_.vars[static_cast<std::size_t>(variable)];
  const int id = ids_[static_cast<std::size_t>(variable)];
  const std::size_t all = productOf(count, count.size());
  if (all == 0) return;
  if (described.ofStrings) {
    readStrings(variable, start, count, values);
  } else if (described.type == NC_CHAR) {
    std::string codes(all, '\0');
    check(nc_get_vara_text(id_, id, start.data(), count.data(), codes.data()));
    for (const char code : codes) *values++ = static_cast<double>(static_cast<unsigned char>(code));
  } else {
    check(nc_get_vara_double(id_, id, start.data(), count.data(), values));
  }
}

}  // namespace cli::fit
