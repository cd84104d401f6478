#pragma once

#include <string>
#include <vector>

#include "CliTest.h"
#include "MadeSet.h"
#include "ReadSet.h"

namespace fit_test {

// Fits sets in a folder of their own, with the real program.
class FitTest : public cli_test::CliTest {
 protected:
  // Makes the set as in.nc and fits it into out.nc. It must succeed, and the copy must be drawn
  // by the program: every variable named in drawn.
  cli_test::Result fit(const MadeSet& set, const std::vector<std::string>& options = {},
                       const std::vector<std::string>& drawn = {"temp"});
  // The same for a set that must be refused; nothing may be left. The result is what is said.
  std::string refusal(const MadeSet& set, const std::vector<std::string>& options = {});
  // Fits in.nc, which the test has made.
  cli_test::Result fitMade(const std::vector<std::string>& options = {},
                           const std::vector<std::string>& drawn = {"temp"});
  std::string refusalOfMade(const std::vector<std::string>& options = {});

  std::string in() const { return file("in.nc"); }
  std::string out() const { return file("out.nc"); }

  // The copy's temp, with a function of its own indices for what is expected.
  template <class Expected>
  void expectTemp(std::size_t times, std::size_t levels, std::size_t rows, std::size_t columns,
                  Expected expected) {
    const std::vector<double> values = ReadSet(out()).values("temp");
    ASSERT_EQ(values.size(), times * levels * rows * columns);
    std::size_t at = 0;
    for (std::size_t t = 0; t < times; ++t) {
      for (std::size_t k = 0; k < levels; ++k) {
        for (std::size_t j = 0; j < rows; ++j) {
          for (std::size_t i = 0; i < columns; ++i, ++at) {
            ASSERT_EQ(values[at], expected(t, k, j, i)) << t << " " << k << " " << j << " " << i;
          }
        }
      }
    }
  }
};

}  // namespace fit_test
