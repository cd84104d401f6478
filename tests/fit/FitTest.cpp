#include "FitTest.h"

#include <stdexcept>

namespace fit_test {
namespace {

// A short path in the middle of the copy's grid.
std::string pathThrough(const ReadSet& set) {
  const std::vector<std::string> names = set.variables();
  // The axes come first: time, level, latitude, longitude.
  const std::vector<double> lats = set.values(names[2]), lons = set.values(names[3]);
  const double dy = (lats.back() - lats.front()) / static_cast<double>(lats.size() - 1);
  double last = lons.back();
  while (last < lons.front()) last += 360;
  const double dx = (last - lons.front()) / static_cast<double>(lons.size() - 1);
  const auto text = [](double lon, double lat) {
    return std::to_string(lon) + "," + std::to_string(lat);
  };
  return text(lons.front() + 0.25 * dx, lats.front() + 0.25 * dy) + " " +
         text(lons.front() + 2.25 * dx, lats.front() + 2.25 * dy);
}

}  // namespace

cli_test::Result FitTest::fitMade(const std::vector<std::string>& options,
                                  const std::vector<std::string>& drawn) {
  const std::string before = contents("in.nc");
  std::vector<std::string> arguments = {"fit", in(), out()};
  arguments.insert(arguments.end(), options.begin(), options.end());
  cli_test::Result result = kelvane(arguments);
  EXPECT_EQ(result.status, 0) << result.err << result.out;
  EXPECT_EQ(contents("in.nc"), before);
  EXPECT_EQ(listing(), (std::vector<std::string>{"in.nc", "out.nc", "small.nc"}));
  // The copy is what all tests are about.
  if (result.status != 0) throw std::runtime_error("There is no copy.");
  const std::string path = pathThrough(ReadSet(out()));
  for (const std::string& name : drawn) {
    const cli_test::Result values = kelvane({"values", out(), "--var", name, "--path", path});
    EXPECT_EQ(values.status, 0) << name << ": " << values.err;
  }
  return result;
}

cli_test::Result FitTest::fit(const MadeSet& set, const std::vector<std::string>& options,
                              const std::vector<std::string>& drawn) {
  set.make(in());
  return fitMade(options, drawn);
}

std::string FitTest::refusalOfMade(const std::vector<std::string>& options) {
  std::vector<std::string> arguments = {"fit", in(), out()};
  arguments.insert(arguments.end(), options.begin(), options.end());
  const cli_test::Result result = kelvane(arguments);
  EXPECT_EQ(result.status, 1) << result.out << result.err;
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(listing(), (std::vector<std::string>{"in.nc", "small.nc"}));
  return result.err;
}

std::string FitTest::refusal(const MadeSet& set, const std::vector<std::string>& options) {
  set.make(in());
  return refusalOfMade(options);
}

}  // namespace fit_test
