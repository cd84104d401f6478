#include "SampleTest.h"

#include "Dispatch.h"
#include "library.h"
#include "support/NcMaker.h"
#include "support/sampleSets.h"

namespace winetest {

std::wstring SampleTest::sample(const std::wstring& name) { return dataFile(L"samples\\" + name); }

Outcome SampleTest::run(const std::wstring& program, const std::vector<std::wstring>& arguments) {
  std::wstring line = program;
  for (const std::wstring& argument : arguments) line += L" \"" + argument + L"\"";
  return runProgram(line);
}

Outcome SampleTest::cscript(const std::wstring& script,
                            const std::vector<std::wstring>& arguments) {
  return run(L"cscript.exe //nologo \"" + script + L"\"", arguments);
}

std::wstring SampleTest::file(const std::string& name) const {
  return host::wide(folder.file(name));
}

std::wstring SampleTest::makeGulfSet() const {
  support::NcMaker nc(folder.file("gulf.nc"));
  const int time = nc.dim("time", NC_UNLIMITED), depth = nc.dim("depth", 2);
  const int lat = nc.dim("lat", 8), lon = nc.dim("lon", 12);
  const int timeVar = nc.var("time", NC_DOUBLE, {time});
  const int depthVar = nc.var("depth", NC_FLOAT, {depth});
  const int latVar = nc.var("lat", NC_FLOAT, {lat}), lonVar = nc.var("lon", NC_FLOAT, {lon});
  nc.text(timeVar, "units", "hours since 1990-01-01 00:00:00");
  nc.text(depthVar, "units", "m");
  nc.text(latVar, "units", "degrees_north");
  nc.text(lonVar, "units", "degrees_east");
  const int temp = nc.var("temp", NC_FLOAT, {time, depth, lat, lon});
  const int salt = nc.var("salt", NC_FLOAT, {time, depth, lat, lon});
  nc.text(temp, "units", "degC");
  nc.text(salt, "units", "1e-3");
  nc.putSlab(timeVar, {0}, {3}, {0, 1, 2});
  nc.put(depthVar, {0, 100});
  nc.put(latVar, {30, 31, 32, 33, 34, 35, 36, 37});
  nc.put(lonVar, {283, 284, 285, 286, 287, 288, 289, 290, 291, 292, 293, 294});
  std::vector<double> warmth, saltiness;
  for (int cell = 0; cell < 3 * 2 * 8 * 12; ++cell) {
    warmth.push_back(25 - 0.125 * cell);
    saltiness.push_back(35);
  }
  nc.putSlab(temp, {0, 0, 0, 0}, {3, 2, 8, 12}, warmth);
  nc.putSlab(salt, {0, 0, 0, 0}, {3, 2, 8, 12}, saltiness);
  return file("gulf.nc");
}

std::wstring SampleTest::makeElsewhereSet() const {
  support::makeTinySet(folder.file("elsewhere.nc"));
  return file("elsewhere.nc");
}

}  // namespace winetest
