#include "NcFile.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace dapserver {

using Name = std::array<char, NC_MAX_NAME + 1>;

NcFile::NcFile(const std::string& path) {
  check(nc_open(path.c_str(), NC_NOWRITE, &id_));
  int count = 0, unlimitedCount = 0;
  check(nc_inq_unlimdims(id_, &unlimitedCount, nullptr));
  std::vector<int> unlimited(static_cast<std::size_t>(unlimitedCount) + 1, -1);
  check(nc_inq_unlimdims(id_, &unlimitedCount, unlimited.data()));
  check(nc_inq_ndims(id_, &count));
  for (int id = 0; id < count; ++id) {
    Name name{};
    std::size_t length = 0;
    check(nc_inq_dim(id_, id, name.data(), &length));
    dimensions_.push_back({name.data(), length, std::ranges::count(unlimited, id) > 0});
  }
  check(nc_inq_nvars(id_, &count));
  for (int id = 0; id < count; ++id) {
    Name name{};
    Variable variable{.id = id, .name = "", .type = NC_NAT, .dimensions = {}};
    int rank = 0;
    check(nc_inq_varndims(id_, id, &rank));
    variable.dimensions.resize(static_cast<std::size_t>(rank));
    check(nc_inq_var(id_, id, name.data(), &variable.type, nullptr, variable.dimensions.data(),
                     nullptr));
    variable.name = name.data();
    variables_.push_back(variable);
  }
}

NcFile::~NcFile() {
  if (id_ >= 0) nc_close(id_);
}

const NcFile::Variable* NcFile::coordinate(int dimension) const {
  const std::string& name = dimensions_[static_cast<std::size_t>(dimension)].name;
  for (const Variable& variable : variables_) {
    if (variable.name == name && variable.dimensions == std::vector<int>{dimension}) {
      return &variable;
    }
  }
  return nullptr;
}

std::vector<std::string> NcFile::attributeNames(int variable) const {
  std::vector<std::string> names;
  int count = 0;
  check(nc_inq_varnatts(id_, variable, &count));
  for (int number = 0; number < count; ++number) {
    Name name{};
    check(nc_inq_attname(id_, variable, number, name.data()));
    names.emplace_back(name.data());
  }
  return names;
}

void NcFile::check(int status) {
  if (status != NC_NOERR) throw std::runtime_error(nc_strerror(status));
}

}  // namespace dapserver
