#include <cmath>

#include "FitTest.h"

// Climatologies that nobody made for these tests, from the package ferret-datasets.
namespace fit_test {
namespace {

using cli_test::contains;
using cli_test::Result;

class FitReal : public FitTest {
 protected:
  Result fitReal(const std::string& data, const std::vector<std::string>& options = {}) {
    std::vector<std::string> arguments = {"fit", data, out()};
    arguments.insert(arguments.end(), options.begin(), options.end());
    Result result = kelvane(arguments);
    EXPECT_EQ(result.status, 0) << result.err;
    return result;
  }
  void expectSection(const std::string& path) {
    const Result drawn = kelvane({"draw", out(), "--path", path, "-o", "section.svg"});
    EXPECT_EQ(drawn.status, 0) << drawn.err;
    EXPECT_GT(cli_test::count(contents("section.svg"), "<path"), 500);
  }
};

TEST_F(FitReal, TheClimatologyWithoutTimeIsDrawn) {
  const Result result = fitReal(LEVITUS_CLIMATOLOGY);
  EXPECT_TRUE(contains(result.out, "TEMP: given the time axis (")) << result.out;
  const ReadSet before(LEVITUS_CLIMATOLOGY), copy(out());
  for (const std::string name : {"TEMP", "SALT"}) {
    EXPECT_EQ(copy.values(name), before.values(name));
    EXPECT_EQ(copy.text(name, "long_name"), before.text(name, "long_name"));
  }
  EXPECT_EQ(copy.values("ZAXLEVITR"), before.values("ZAXLEVITR"));
  expectSection("150,-50 250,50");
}

TEST_F(FitReal, TheAtlasKeepsItsValuesAndItsMonths) {
  fitReal(OCEAN_ATLAS);
  const ReadSet before(OCEAN_ATLAS), copy(out());
  EXPECT_EQ(copy.values("TEMP"), before.values("TEMP"));
  const Result info = kelvane({"info", out()});
  EXPECT_TRUE(contains(info.out, "2000-01-16")) << info.out;
  EXPECT_TRUE(contains(info.out, "2000-12-16")) << info.out;
  expectSection("150,-50 250,50");
}

TEST_F(FitReal, ABoxAcrossGreenwichHasTheValuesOfTheAtlas) {
  fitReal(OCEAN_ATLAS, {"--box", "-30,-10,30,10", "--times", "7:8"});
  const ReadSet before(OCEAN_ATLAS), copy(out());
  const std::vector<double> lons = copy.values("XAX_SUBSET"), lats = copy.values("YAX_SUBSET");
  const std::vector<double> oldLons = before.values("XAX_SUBSET");
  const std::vector<double> oldLats = before.values("YAX_SUBSET");
  const std::vector<double> values = copy.values("TEMP"), oldValues = before.values("TEMP");
  ASSERT_EQ(lons.size(), 30U);
  EXPECT_EQ(lons.front(), -29.5);
  EXPECT_EQ(lons.back(), 28.5);
  ASSERT_EQ(values.size(), 2 * 19 * lats.size() * lons.size());
  std::size_t at = 0;
  for (std::size_t t = 6; t < 8; ++t) {
    for (std::size_t k = 0; k < 19; ++k) {
      for (const double lat : lats) {
        for (const double lon : lons) {
          const auto j = static_cast<std::size_t>((lat - oldLats[0]) / 2);
          const auto i = static_cast<std::size_t>(std::fmod(lon - oldLons[0] + 360, 360) / 2);
          const std::size_t place = ((t * 19 + k) * oldLats.size() + j) * oldLons.size() + i;
          ASSERT_EQ(values[at++], oldValues[place]) << lon << " " << lat;
        }
      }
    }
  }
  expectSection("-29,-9.9 28,9.9");
}

TEST_F(FitReal, TheSameGridOnceMoreHasTheSameValues) {
  // The nodes of the new grid are the points of the old one.
  fitReal(OCEAN_ATLAS, {"--grid", "2", "--box", "20.5,-89.5,378.5,88.5", "--times", "1"});
  const std::vector<double> values = ReadSet(out()).values("TEMP");
  const std::vector<double> before = ReadSet(OCEAN_ATLAS).values("TEMP");
  ASSERT_EQ(values.size() * 12, before.size());
  std::size_t wrong = 0;
  for (std::size_t at = 0; at < values.size(); ++at) {
    if (values[at] != before[at]) ++wrong;
  }
  EXPECT_EQ(wrong, 0U);
}

}  // namespace
}  // namespace fit_test
