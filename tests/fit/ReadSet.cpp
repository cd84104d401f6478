#include "ReadSet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace fit_test {
namespace {

void check(int status, const std::string& what) {
  EXPECT_EQ(status, NC_NOERR) << what << ": " << nc_strerror(status);
}

}  // namespace

ReadSet::ReadSet(const std::string& path) { check(nc_open(path.c_str(), 0, &ncid_), path); }
ReadSet::~ReadSet() { nc_close(ncid_); }

int ReadSet::id(const std::string& variable) const {
  int found = NC_GLOBAL;
  if (!variable.empty()) check(nc_inq_varid(ncid_, variable.c_str(), &found), variable);
  return found;
}

bool ReadSet::has(const std::string& variable) const {
  int found = -1;
  return nc_inq_varid(ncid_, variable.c_str(), &found) == NC_NOERR;
}

std::vector<std::string> ReadSet::variables() const {
  int count = 0;
  check(nc_inq_nvars(ncid_, &count), "variables");
  std::vector<std::string> names;
  for (int at = 0; at < count; ++at) {
    char name[NC_MAX_NAME + 1] = {};
    check(nc_inq_varname(ncid_, at, name), "name");
    names.emplace_back(name);
  }
  return names;
}

nc_type ReadSet::type(const std::string& variable) const {
  nc_type type = NC_NAT;
  check(nc_inq_vartype(ncid_, id(variable), &type), variable);
  return type;
}

std::string ReadSet::dims(const std::string& variable) const {
  int count = 0, dims[NC_MAX_VAR_DIMS] = {};
  check(nc_inq_var(ncid_, id(variable), nullptr, nullptr, &count, dims, nullptr), variable);
  std::string text;
  for (int at = 0; at < count; ++at) {
    char name[NC_MAX_NAME + 1] = {};
    check(nc_inq_dimname(ncid_, dims[at], name), variable);
    text += (at > 0 ? " " : "") + std::string(name);
  }
  return text;
}

std::vector<double> ReadSet::values(const std::string& variable) const {
  int count = 0, dims[NC_MAX_VAR_DIMS] = {};
  check(nc_inq_var(ncid_, id(variable), nullptr, nullptr, &count, dims, nullptr), variable);
  std::size_t size = 1;
  for (int at = 0; at < count; ++at) {
    std::size_t length = 0;
    check(nc_inq_dimlen(ncid_, dims[at], &length), variable);
    size *= length;
  }
  std::vector<double> values(size);
  check(nc_get_var_double(ncid_, id(variable), values.data()), variable);
  return values;
}

std::string ReadSet::text(const std::string& variable, const std::string& name) const {
  std::size_t length = 0;
  nc_type type = NC_NAT;
  if (nc_inq_att(ncid_, id(variable), name.c_str(), &type, &length) != NC_NOERR) return {};
  EXPECT_EQ(type, NC_CHAR) << variable << ":" << name;
  std::string text(length, '\0');
  if (type == NC_CHAR) check(nc_get_att_text(ncid_, id(variable), name.c_str(), text.data()), name);
  return text;
}

double ReadSet::number(const std::string& variable, const std::string& name) const {
  std::size_t length = 0;
  std::vector<double> numbers = {std::numeric_limits<double>::quiet_NaN()};
  if (nc_inq_attlen(ncid_, id(variable), name.c_str(), &length) != NC_NOERR) return numbers[0];
  numbers.resize(std::max<std::size_t>(length, 1));
  check(nc_get_att_double(ncid_, id(variable), name.c_str(), numbers.data()), name);
  return numbers[0];
}

std::vector<std::string> ReadSet::attributes(const std::string& variable) const {
  int count = 0;
  check(
      variable.empty() ? nc_inq_natts(ncid_, &count) : nc_inq_varnatts(ncid_, id(variable), &count),
      variable);
  std::vector<std::string> names;
  for (int at = 0; at < count; ++at) {
    char name[NC_MAX_NAME + 1] = {};
    check(nc_inq_attname(ncid_, id(variable), at, name), "name");
    names.emplace_back(name);
  }
  return names;
}

bool ReadSet::unlimited(const std::string& dimension) const {
  int found = -1, wanted = -2;
  check(nc_inq_dimid(ncid_, dimension.c_str(), &wanted), dimension);
  check(nc_inq_unlimdim(ncid_, &found), dimension);
  return found == wanted;
}

}  // namespace fit_test
