#include "support/sampleSets.h"

#include "colorkey/colorKey.h"
#include "colorkey/rampColour.h"
#include "netcdf/ncf.h"
#include "netcdf/NetCDF.h"
#include "netcdf/readAhead.h"
#include "netcdf/status.h"
#include "netcdf/title.h"
#include "render/plotFrame.h"
#include "render/settings.h"
#include "section/drawItems.h"
#include "section/sectionPath.h"
#include "section/sectionValues.h"
#include "support/NcMaker.h"
#include "util/lastError.h"

namespace support {

void makeTinySet(const std::string& path, int mode) {
  NcMaker nc(path, mode);
  const int time = nc.dim("time", NC_UNLIMITED);
  const int depth = nc.dim("depth", 3);
  const int lat = nc.dim("lat", 4);
  const int lon = nc.dim("lon", 6);
  const int timeVar = nc.var("time", NC_DOUBLE, {time});
  nc.text(timeVar, "units", "hours since 1990-01-01 00:00:00");
  const int depthVar = nc.var("depth", NC_FLOAT, {depth});
  nc.text(depthVar, "units", "m");
  const int latVar = nc.var("lat", NC_FLOAT, {lat});
  nc.text(latVar, "units", "degrees_north");
  const int lonVar = nc.var("lon", NC_FLOAT, {lon});
  nc.text(lonVar, "units", "degrees_east");
  const int temp = nc.var("temp", NC_SHORT, {time, depth, lat, lon});
  nc.text(temp, "long_name", " potential temperature ");
  nc.text(temp, "units", "degC");
  nc.number(temp, "scale_factor", NC_FLOAT, {static_cast<double>(0.01F)});
  nc.number(temp, "add_offset", NC_DOUBLE, {10});
  nc.number(temp, "_FillValue", NC_SHORT, {-32768});
  const int zeta = nc.var("zeta", NC_FLOAT, {time, lat, lon});
  nc.text(zeta, "units", "m");
  const int salt = nc.var("salt", NC_FLOAT, {time, depth, lat, lon});
  nc.text(salt, "long_name", "salinity");
  nc.text(salt, "units", "1");
  nc.number(salt, "missing_value", NC_FLOAT, {1e20});
  nc.text(NC_GLOBAL, "title", "little run");

  nc.putSlab(timeVar, {0}, {2}, {36, 60});
  nc.put(depthVar, {0, 50, 200});
  nc.put(latVar, {-1, -0.5, 0, 0.5});
  nc.put(lonVar, {350, 352, 354, 356, 358, 0});
  std::vector<double> temps, salts;
  for (int t = 1; t <= 2; ++t) {
    for (int k = 1; k <= 3; ++k) {
      for (int j = 1; j <= 4; ++j) {
        for (int i = 1; i <= 6; ++i) {
          temps.push_back(k == 3 && i >= 5 ? -32768 : 900 - 350 * k + 37 * i - 20 * j + 55 * t);
          salts.push_back(j == 1 ? 1e20 : 34 + 0.25 * k + 0.125 * i - 0.0625 * j);
        }
      }
    }
  }
  nc.putSlab(temp, {0, 0, 0, 0}, {2, 3, 4, 6}, temps);
  nc.putSlab(zeta, {0, 0, 0}, {2, 4, 6}, std::vector<double>(48, 0.0));
  nc.putSlab(salt, {0, 0, 0, 0}, {2, 3, 4, 6}, salts);
  nc.close();
}

void resetState() {
  ocxNetNc::NcClose();
  NetCDF::forgetReads();
  NetCDF::library = NetCDF::theLibrary();
  NetCDF::beneath = NetCDF::bareLibrary();
  ocxNetNc::ncf = {};
  ocxNetNc::DataSetName = {};
  ocxNetNc::DataSetName.shrink_to_fit();
  ocxNetNc::TitleLines = util::OneBased<std::string>(4);
  KelvaneMain::DrawItems = {};
  KelvaneMain::Item_shown = KelvaneMain::VarShown = KelvaneMain::TimeShown = 0;
  KelvaneMain::ClearSectionPoints();
  KelvaneMain::SectionPoints = {};
  KelvaneMain::section = {};
  KelvaneMain::section_values = {};
  KelvaneMain::settings = {};
  KelvaneMain::plot = {};
  ModColor::ColorKey = {};
  ModColor::bUseKey = 0;
  ModColor::RampDirection = 0;
  ModColor::ValueMin = ModColor::ValueSpan = 0;
  util::LastError.clear();
}

}  // namespace support
