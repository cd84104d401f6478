#include <gtest/gtest.h>

#include "Dispatch.h"
#include "control.h"
#include "support/NcMaker.h"
#include "support/TempFolder.h"

namespace winetest {
namespace {

void makeSmallSet(const std::string& path, int mode) {
  support::NcMaker nc(path, mode);
  const int time = nc.dim("time", 1);
  const int depth = nc.dim("depth", 2);
  const int lat = nc.dim("lat", 2);
  const int lon = nc.dim("lon", 3);
  const int times = nc.var("time", NC_DOUBLE, {time});
  nc.text(times, "units", "days since 2000-01-01");
  const int depths = nc.var("depth", NC_FLOAT, {depth});
  nc.text(depths, "units", "m");
  const int lats = nc.var("lat", NC_FLOAT, {lat});
  nc.text(lats, "units", "degrees_north");
  const int lons = nc.var("lon", NC_FLOAT, {lon});
  nc.text(lons, "units", "degrees_east");
  const int temp = nc.var("temp", NC_FLOAT, {time, depth, lat, lon});
  nc.put(times, {0});
  nc.put(depths, {0, 10});
  nc.put(lats, {0, 1});
  nc.put(lons, {0, 1, 2});
  nc.put(temp, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
}

struct Name {
  const char* title;
  const wchar_t* name;
};

// Names in the code page, outside it, and such that read as UTF-8 mean another one.
const Name kNames[] = {{"Plain", L"plain.nc"},
                       {"Blanks", L"two words.nc"},
                       {"Western", L"K\u00F6ln \u00C5lesund.nc"},
                       {"Mistakable", L"\u00C3\u00A4.nc"},
                       {"Greek", L"\u03B8\u03AC\u03BB\u03B1\u03C3\u03C3\u03B1.nc"},
                       {"Japanese", L"\u6D77\u6D0B.nc"},
                       {"BeyondTheBasicPlane", L"\U0001F30A.nc"}};

class FileNames : public testing::TestWithParam<std::tuple<Name, int>> {};

TEST_P(FileNames, AreFound) {
  const auto& [name, mode] = GetParam();
  const support::TempFolder folder;
  const std::wstring path = folder.path().wstring() + L"\\" + name.name;
  makeSmallSet(folder.file("made.nc"), mode);
  ASSERT_TRUE(MoveFileW((folder.path().wstring() + L"\\made.nc").c_str(), path.c_str()));
  BareControl control;
  host::Object object(control.identity());
  EXPECT_EQ(object.call(L"NcFile", {path}).number(), 1)
      << host::narrow(object.get(L"ErrorMessage").text());
  EXPECT_EQ(object.get(L"NumDrawAbleItems").number(), 1);
}

INSTANTIATE_TEST_SUITE_P(, FileNames,
                         testing::Combine(testing::ValuesIn(kNames), testing::Values(0, NC_NETCDF4)),
                         [](const auto& tested) {
                           return std::string(std::get<0>(tested.param).title) +
                                  (std::get<1>(tested.param) == 0 ? "Classic" : "NetCDF4");
                         });

}  // namespace
}  // namespace winetest
