#pragma once

#include <netcdf.h>

#include <string>
#include <vector>

namespace fit_test {

// A file as the library reads it, for comparing. A missing thing fails the test.
class ReadSet {
 public:
  explicit ReadSet(const std::string& path);
  ~ReadSet();
  ReadSet(const ReadSet&) = delete;
  ReadSet& operator=(const ReadSet&) = delete;

  bool has(const std::string& variable) const;
  std::vector<std::string> variables() const;
  nc_type type(const std::string& variable) const;
  // "time depth lat lon"
  std::string dims(const std::string& variable) const;
  std::vector<double> values(const std::string& variable) const;
  // Attributes, of numbers the first one; of the data set when the variable is empty. Empty and
  // NaN when there is none.
  std::string text(const std::string& variable, const std::string& name) const;
  double number(const std::string& variable, const std::string& name) const;
  std::vector<std::string> attributes(const std::string& variable) const;
  bool unlimited(const std::string& dimension) const;

 private:
  int id(const std::string& variable) const;
  int ncid_ = -1;
};

}  // namespace fit_test
