#include <gtest/gtest.h>
#include <netcdf.h>

#include <cstdlib>
#include <chrono>
#include <filesystem>
#include <fstream>

#include "Dispatch.h"
#include "Form.h"
#include "Picture.h"
#include "control.h"
#include "support/NcMaker.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"

// The control as its hosts have it, with data sets on a server that runs beside this program.
namespace winetest {
namespace {

std::string fromEnvironment(const char* name) {
  const char* const value = std::getenv(name);
  if (value == nullptr) throw std::runtime_error(std::string(name) + " is not set");
  return value;
}

// A user whose settings of the library give an answer three seconds.
class ImpatientUser : public testing::Environment {
 public:
  void SetUp() override { std::ofstream(settings_) << "HTTP.TIMEOUT=3\n"; }
  void TearDown() override { std::filesystem::remove(settings_); }

 private:
  std::string settings_ = fromEnvironment("USERPROFILE") + "\\.ncrc";
};

const auto* const kUser = testing::AddGlobalTestEnvironment(new ImpatientUser);

class RemoteControl : public testing::Test {
 protected:
  static constexpr int kWidth = 400, kHeight = 300;

  RemoteControl() {
    support::makeTinySet(file("tiny.nc"));
    host::setExtent(object_, kWidth, kHeight);
  }

  static std::string file(const std::string& name) {
    return fromEnvironment("KELVANE_DAP_FOLDER") + "\\" + name;
  }
  // The tiny set on the server, with a fault as the server's own page lists them.
  static std::string address(const std::string& path) {
    return fromEnvironment("KELVANE_DAP_ADDRESS") + path;
  }

  int open(const std::string& name) {
    return object_.call(L"NcFile", {host::wide(name)}).number();
  }
  void choosePath(double lon1, double lat1, double lon2, double lat2) {
    object_.call(L"NewSection");
    object_.call(L"AddSection", {lon1, lat1});
    object_.call(L"AddSection", {lon2, lat2});
    EXPECT_EQ(object_.call(L"EndSection").number(), 1) << message();
  }
  // The picture of an item; checks every member on the way.
  host::Picture draw(const std::string& name, const wchar_t* item) {
    EXPECT_EQ(open(name), 1) << message();
    choosePath(350.5, -0.9, 358, 0.4);
    EXPECT_EQ(object_.call(L"SetVarByName", {item}).number(), 1) << message();
    object_.call(L"Draw");
    return picture();
  }
  host::Picture picture() {
    return host::takePicture(kWidth, kHeight, [&](HDC dc) {
      const RECTL bounds{0, 0, kWidth, kHeight};
      EXPECT_EQ(control_.view()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds,
                                      nullptr, nullptr, 0),
                S_OK);
    });
  }
  std::string message() { return host::narrow(object_.get(L"ErrorMessage").text()); }
  std::vector<std::wstring> items() {
    std::vector<std::wstring> names;
    const int count = object_.get(L"NumDrawAbleItems").number();
    for (int n = 1; n <= count; ++n) names.push_back(object_.call(L"ItemName", {n}).text());
    return names;
  }
  // The files in the folder for temporary ones and in the current one.
  static std::vector<std::wstring> files() {
    std::vector<std::wstring> names;
    for (const auto& folder :
         {std::filesystem::temp_directory_path(), std::filesystem::current_path()}) {
      for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.push_back(entry.path().wstring());
      }
    }
    return names;
  }

  BareControl control_;
  host::Object object_{control_.identity()};
};

TEST_F(RemoteControl, DrawsWhatItDrawsOfTheFile) {
  const host::Picture local = draw(file("tiny.nc"), L"temp");
  const std::vector<std::wstring> localItems = items();
  EXPECT_TRUE(draw(address("tiny.nc"), L"temp") == local);
  EXPECT_EQ(items(), localItems);
  EXPECT_TRUE(draw(address("chunked/tiny.nc"), L"temp") == local);
  EXPECT_TRUE(draw(address("redirect/tiny.nc"), L"temp") == local);
  EXPECT_TRUE(control_.boxes().empty());
}

TEST_F(RemoteControl, StepsThroughTime) {
  const host::Picture first = draw(file("tiny.nc"), L"salt");
  object_.call(L"AdvanceTime", {1});
  const host::Picture second = picture();
  EXPECT_FALSE(second == first);
  EXPECT_TRUE(draw(address("tiny.nc"), L"salt") == first);
  EXPECT_EQ(object_.call(L"AdvanceTime", {1}).number(), 2);
  EXPECT_TRUE(picture() == second);
  EXPECT_EQ(object_.call(L"AdvanceTime", {1}).number(), 1);
  EXPECT_TRUE(picture() == first);
}

TEST_F(RemoteControl, DrawsProfiles) {
  object_.put(L"DrawProfile", true);
  const host::Picture local = draw(file("tiny.nc"), L"salt");
  EXPECT_TRUE(draw(address("tiny.nc"), L"salt") == local);
  object_.put(L"DrawVerticalSection", true);
}

TEST_F(RemoteControl, LeavesNoFiles) {
  const std::vector<std::wstring> before = files();
  draw(address("tiny.nc"), L"temp");
  open(address("404/tiny.nc"));
  open(address("refuse/tiny.nc"));
  EXPECT_EQ(files(), before);
}

// A section of four million values, which no server sends at once.
TEST_F(RemoteControl, DrawsALargeSection) {
  constexpr std::size_t kLons = 20000, kLevels = 200;
  {
    support::NcMaker nc(file("wide.nc"));
    const int time = nc.dim("time", 1), depth = nc.dim("depth", kLevels);
    const int lat = nc.dim("lat", 2), lon = nc.dim("lon", kLons);
    const int times = nc.var("time", NC_DOUBLE, {time}), depths = nc.var("depth", NC_FLOAT, {depth});
    const int lats = nc.var("lat", NC_FLOAT, {lat}), lons = nc.var("lon", NC_FLOAT, {lon});
    nc.text(times, "units", "days since 2000-01-01");
    nc.text(depths, "units", "m");
    nc.text(lats, "units", "degrees_north");
    nc.text(lons, "units", "degrees_east");
    const int temp = nc.var("temp", NC_SHORT, {time, depth, lat, lon});
    const auto steps = [](std::size_t count, double step) {
      std::vector<double> all;
      for (std::size_t i = 0; i < count; ++i) all.push_back(step * static_cast<double>(i));
      return all;
    };
    nc.put(times, {0});
    nc.put(depths, steps(kLevels, 1));
    nc.put(lats, {10, 11});
    nc.put(lons, steps(kLons, 0.0078125));
    std::vector<double> numbers(kLons * kLevels * 2);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      numbers[i] = static_cast<double>(i * 7919 % 60013) - 30000;
    }
    nc.put(temp, numbers);
  }
  std::vector<host::Picture> pictures;
  for (const std::string& name : {file("wide.nc"), address("wide.nc")}) {
    ASSERT_EQ(open(name), 1) << message();
    choosePath(0, 10, 156.2421875, 10);
    object_.call(L"Draw");
    pictures.push_back(picture());
  }
  EXPECT_TRUE(pictures[1] == pictures[0]);
  EXPECT_TRUE(control_.boxes().empty());
}

struct Failure {
  const char* title;
  const char* fault;
  int status;
};

void PrintTo(const Failure& failure, std::ostream* out) { *out << failure.title; }

class FailingServer : public RemoteControl, public testing::WithParamInterface<Failure> {
 protected:
  // The library's text in the box and in front of the message; below it the status and advice.
  void expectToldOf(int status) {
    const std::string text = nc_strerror(status);
    EXPECT_EQ(message().find(text + "\n"), 0U) << message();
    EXPECT_NE(message().find("\nStatus " + std::to_string(status) + ": "), std::string::npos)
        << message();
    EXPECT_NE(message().find("127.0.0.1"), std::string::npos) << message();
    ASSERT_EQ(control_.boxes().size(), 1U);
    EXPECT_EQ(host::narrow(control_.boxes()[0].caption), "NetCDF Error");
    EXPECT_EQ(host::narrow(control_.boxes()[0].text), text);
  }
};

// Opening or reading fails, whichever comes first; the picture stays, and the next data set is
// drawn.
TEST_P(FailingServer, IsToldAndTheNextOneWorks) {
  const host::Picture before = draw(address("tiny.nc"), L"temp");
  const auto begin = std::chrono::steady_clock::now();
  if (open(address(std::string(GetParam().fault) + "/tiny.nc")) == 1) {
    object_.call(L"Draw");
  } else {
    EXPECT_TRUE(picture() == before);
  }
  expectToldOf(GetParam().status);
  // The user's limit and not the default one; a busy machine may take its time besides.
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(15));
  EXPECT_TRUE(draw(address("tiny.nc"), L"temp") == before);
  EXPECT_EQ(control_.boxes().size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(, FailingServer,
                         testing::Values(Failure{"Refuses", "refuse.dds", NC_EIO},
                                         Failure{"IsStuck", "stuck.dds", NC_EIO},
                                         Failure{"HasNoSuchSet", "404.dds", NC_ENOTFOUND},
                                         Failure{"SendsAPage", "html.dds", NC_EDDS},
                                         Failure{"FailsInside", "500.dds", NC_EDAPSVC},
                                         Failure{"LeadsAstray", "loop.dds", NC_EIO},
                                         Failure{"LosesTheAttributes", "brokendas.das", NC_EDAS},
                                         Failure{"CutsTheData", "cut-3.dods.2", NC_EDAP},
                                         Failure{"CutsTheDataUntold", "cutuntold-7.dods.2", NC_EDAP},
                                         Failure{"AllowsNoReading", "403.dods.2", NC_EAUTH},
                                         Failure{"HangsUp", "reset.dods.2", NC_EIO},
                                         Failure{"FailsWhileReading", "error.dods.2", NC_EDAPSVC}),
                         [](const auto& tested) { return std::string(tested.param.title); });

}  // namespace
}  // namespace winetest
