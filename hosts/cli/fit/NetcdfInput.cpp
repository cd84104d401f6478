#include "fit/NetcdfInput.h"

#include <algorithm>

#include "failures.h"
#include "header/readHeader.h"
#include "nameList.h"
#include "netcdf/classicHeader.h"
#include "netcdf/remoteAdvice.h"
#include "netcdf/remoteName.h"

namespace cli::fit {
namespace {

// The most strings of a variable that are looked at.
constexpr std::size_t kMostStrings = std::size_t{1} << 20;
// What is held of the chunks of a compressed variable, in bytes: those of all levels of a step.
constexpr std::size_t kChunkCache = std::size_t{64} << 20;
constexpr std::size_t kChunkSlots = 10007;

std::size_t productOf(const std::vector<std::size_t>& count, std::size_t first) {
  std::size_t product = 1;
  for (std::size_t at = 0; at < first; ++at) product *= count[at];
  return product;
}

}  // namespace

NetcdfInput::NetcdfInput(const std::string& name, const std::string& group) : name_(name) {
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
    takeHeader(group);
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

void NetcdfInput::takeHeader(const std::string& group) {
  const int from = group.empty() ? id_ : groupOf(id_, group);
  Header read = readHeader(from < 0 ? id_ : from, [this](int status) { check(status); });
  if (from < 0) {
    std::vector<std::string> paths;
    for (const Group& each : read.groups) paths.push_back(each.path);
    throw Failure("There is no group " + group + ".\n" +
                  (paths.empty() ? "The data set has no groups with variables."
                                 : "Groups: " + nameList(paths)));
  }
  std::vector<Variable> variables = std::move(read.vars);
  read.vars.clear();
  header_ = std::move(read);
  tidy(header_.globals);
  for (Variable& each : variables) addVariable(std::move(each));
}

// Leaves out containers that servers make of attributes, and types that users made.
void NetcdfInput::tidy(Attributes& attributes) {
  for (const Attribute& each : attributes) {
    if (each.tooLong) throw Failure("The attribute " + each.name + " is too long.");
  }
  std::erase_if(attributes,
                [](const Attribute& each) { return each.type <= NC_NAT || each.type > NC_STRING; });
}

void NetcdfInput::addVariable(Variable variable) {
  if (variable.type <= NC_NAT || variable.type > NC_STRING) {
    leftOut_.push_back("variable " + variable.name + " (a type of its own)");
    return;
  }
  tidy(variable.attributes);
  if (variable.type == NC_STRING) {
    const std::size_t width = widestString(variable);
    if (width == 0) {
      leftOut_.push_back("variable " + variable.name + " (strings beyond counting)");
      return;
    }
    variable.type = NC_CHAR;
    variable.ofStrings = true;
    variable.dims.push_back(static_cast<int>(header_.dims.size()));
    header_.dims.push_back({"width_of_" + variable.name, width, false});
  } else if (!variable.dims.empty()) {
    // Only files of the newer formats have chunks; the others refuse.
    static_cast<void>(
        nc_set_var_chunk_cache(variable.group, variable.id, kChunkCache, kChunkSlots, 0.75F));
  }
  header_.vars.push_back(std::move(variable));
}

// 0 when there are too many to look at.
std::size_t NetcdfInput::widestString(const Variable& variable) const {
  std::size_t all = 1;
  for (const int dim : variable.dims) {
    const std::size_t length = header_.dims[static_cast<std::size_t>(dim)].length;
    if (length > 0 && all > kMostStrings / length) return 0;
    all *= length;
  }
  std::size_t width = 1;
  if (all == 0) return width;
  Strings strings(all);
  check(nc_get_var_string(variable.group, variable.id, strings.data()));
  for (std::size_t at = 0; at < all; ++at) width = std::max(width, strings[at].size());
  return width;
}

void NetcdfInput::readStrings(const Variable& variable, const std::vector<std::size_t>& start,
                              const std::vector<std::size_t>& count, double* values) const {
  const std::size_t last = count.size() - 1, from = start[last], width = count[last];
  Strings strings(productOf(count, last));
  check(
      nc_get_vara_string(variable.group, variable.id, start.data(), count.data(), strings.data()));
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
  const int group = described.group, id = described.id;
  const std::size_t all = productOf(count, count.size());
  if (all == 0) return;
  if (described.ofStrings) {
    readStrings(described, start, count, values);
  } else if (described.type == NC_CHAR) {
    std::string codes(all, '\0');
    check(nc_get_vara_text(group, id, start.data(), count.data(), codes.data()));
    for (const char code : codes) *values++ = static_cast<double>(static_cast<unsigned char>(code));
  } else {
    check(nc_get_vara_double(group, id, start.data(), count.data(), values));
  }
}

}  // namespace cli::fit
