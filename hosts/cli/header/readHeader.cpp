#include "header/readHeader.h"

#include <algorithm>
#include <array>
#include <optional>

#include "failures.h"

namespace cli {
namespace {

// No attribute worth reading is longer; a damaged header may say so.
constexpr std::size_t kMostInAttribute = std::size_t{1} << 20;
// The library's time for reading them grows with the square of their number.
constexpr int kMostAttributes = 8192;

using Name = std::array<char, NC_MAX_NAME + 1>;

class Reader {
 public:
  Reader(int id, const Check& check) : id_(id), check_(check) {}

  Header read() {
    check_(nc_inq_format(id_, &header_.format));
    std::vector<int> around = {id_};
    for (int outer = 0; nc_inq_grp_parent(around.back(), &outer) == NC_NOERR;) {
      around.push_back(outer);
    }
    for (const int group : around) readDimensions(group);
    for (const int group : around) readGroup(group);
    listGroups(id_, ownPath());
    return std::move(header_);
  }

 private:
  // With groups the library's numbers of dimensions are not those from 0 on. A dimension hides
  // those of its name further out.
  void readDimensions(int group) {
    int count = 0;
    check_(nc_inq_dimids(group, &count, nullptr, 0));
    std::vector<int> ids(static_cast<std::size_t>(count) + 1);
    check_(nc_inq_dimids(group, &count, ids.data(), 0));
    ids.pop_back();
    std::ranges::sort(ids);
    const std::vector<int> unlimited = unlimitedIds(group);
    for (const int id : ids) {
      Name name{};
      Dimension dimension;
      check_(nc_inq_dim(group, id, name.data(), &dimension.length));
      dimension.name = name.data();
      dimension.unlimited = std::ranges::find(unlimited, id) != unlimited.end();
      dimension.id = id;
      if (header_.dimension(dimension.name) < 0) header_.dims.push_back(dimension);
    }
  }

  std::vector<int> unlimitedIds(int group) const {
    int count = 0;
    if (nc_inq_unlimdims(group, &count, nullptr) != NC_NOERR || count < 1) return {};
    std::vector<int> ids(static_cast<std::size_t>(count));
    check_(nc_inq_unlimdims(group, &count, ids.data()));
    return ids;
  }

  // Variables and attributes, but for those that are hidden by what is further in.
  void readGroup(int group) {
    int variables = 0, attributes = 0;
    check_(nc_inq_nvars(group, &variables));
    check_(nc_inq_natts(group, &attributes));
    for (int id = 0; id < variables; ++id) {
      std::optional<Variable> variable = variableOf(group, id);
      if (group == id_ && !variable) {
        throw Failure("A variable has a dimension that the data set has not.");
      }
      if (variable && (group == id_ || header_.variable(variable->name) < 0)) {
        header_.vars.push_back(std::move(*variable));
      }
    }
    for (Attribute& attribute : attributesOf(group, NC_GLOBAL, attributes)) {
      if (find(header_.globals, attribute.name) != nullptr) continue;
      header_.globals.push_back(std::move(attribute));
    }
  }

  // Nothing when a dimension of it is not to be seen from here.
  std::optional<Variable> variableOf(int group, int id) const {
    Variable variable;
    Name name{};
    int rank = 0, attributes = 0;
    check_(nc_inq_var(group, id, name.data(), &variable.type, &rank, nullptr, &attributes));
    variable.name = name.data();
    variable.group = group;
    variable.id = id;
    std::vector<int> ids(static_cast<std::size_t>(rank) + 1);
    check_(nc_inq_vardimid(group, id, ids.data()));
    ids.pop_back();
    for (const int dimension : ids) {
      const auto found = std::ranges::find(header_.dims, dimension, &Dimension::id);
      if (found == header_.dims.end()) return std::nullopt;
      variable.dims.push_back(static_cast<int>(found - header_.dims.begin()));
    }
    variable.attributes = attributesOf(group, id, attributes);
    return variable;
  }

  Attributes attributesOf(int group, int variable, int count) const {
    if (count > kMostAttributes) {
      throw Failure("There are too many attributes: " + std::to_string(count) + ".");
    }
    Attributes attributes;
    for (int number = 0; number < count; ++number) {
      Name name{};
      check_(nc_inq_attname(group, variable, number, name.data()));
      attributes.push_back(attributeOf(group, variable, name.data()));
    }
    return attributes;
  }

  Attribute attributeOf(int group, int variable, const char* name) const {
    Attribute attribute;
    std::size_t length = 0;
    attribute.name = name;
    check_(nc_inq_att(group, variable, name, &attribute.type, &length));
    attribute.tooLong = length > kMostInAttribute;
    if (attribute.tooLong || length == 0) return attribute;
    if (attribute.type == NC_CHAR) {
      attribute.text.resize(length);
      check_(nc_get_att_text(group, variable, name, attribute.text.data()));
      attribute.text.resize(std::min(attribute.text.find('\0'), length));
    } else if (attribute.type == NC_STRING) {
      Strings strings(length);
      check_(nc_get_att_string(group, variable, name, strings.data()));
      for (std::size_t at = 0; at < length; ++at) {
        attribute.text.append(at > 0 ? ", " : "").append(strings[at]);
      }
    } else if (attribute.type > NC_NAT && attribute.type < NC_STRING) {
      attribute.numbers.resize(length);
      check_(nc_get_att_double(group, variable, name, attribute.numbers.data()));
    }
    return attribute;
  }

  // Empty outside of groups.
  std::string ownPath() const {
    std::size_t length = 0;
    if (nc_inq_grpname_full(id_, &length, nullptr) != NC_NOERR || length < 2) return {};
    std::string path(length + 1, '\0');
    check_(nc_inq_grpname_full(id_, &length, path.data()));
    path.resize(length);
    return path;
  }

  void listGroups(int group, const std::string& path) {
    int count = 0;
    if (nc_inq_grps(group, &count, nullptr) != NC_NOERR || count < 1) return;
    std::vector<int> ids(static_cast<std::size_t>(count));
    check_(nc_inq_grps(group, &count, ids.data()));
    for (const int id : ids) {
      Name name{};
      Group inner;
      check_(nc_inq_grpname(id, name.data()));
      check_(nc_inq_nvars(id, &inner.variables));
      inner.path = path + "/" + name.data();
      if (inner.variables > 0) header_.groups.push_back(inner);
      listGroups(id, inner.path);
    }
  }

  int id_;
  const Check& check_;
  Header header_;
};

}  // namespace

Header readHeader(int id, const Check& check) { return Reader(id, check).read(); }

int groupOf(int id, const std::string& path) {
  const std::string whole = path.starts_with('/') ? path : "/" + path;
  int group = -1;
  return nc_inq_grp_full_ncid(id, whole.c_str(), &group) == NC_NOERR ? group : -1;
}

}  // namespace cli
