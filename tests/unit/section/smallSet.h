#pragma once

#include <string>
#include <vector>

#include "support/NcMaker.h"

// A small data set for tests that add variables of their own: time 2, depth 3 (0, 50, 200 m),
// lat 4 (-1 .. 0.5), lon 5 (10 .. 18).
struct SmallSet {
  explicit SmallSet(const std::string& path);
  // Values for a variable of these dimensions: 1000 t + 100 k + 10 j + i, counted from 1; an
  // index that the variable lacks counts as 0.
  std::vector<double> values(const std::vector<int>& dims) const;
  // Adds a variable and remembers its values; finish() writes them all.
  int add(const std::string& name, nc_type type, const std::vector<int>& dims);
  int add(const std::string& name, nc_type type, const std::vector<int>& dims,
          const std::vector<double>& values);
  void finish();

  support::NcMaker nc;
  int time, depth, lat, lon;  // dimensions

 private:
  struct Pending {
    int var;
    std::vector<double> values;
  };
  std::vector<Pending> pending_;
};
