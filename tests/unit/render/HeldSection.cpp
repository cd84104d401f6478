#include "HeldSection.h"

#include "netcdf/ncf.h"
#include "netcdf/title.h"
#include "render/settings.h"
#include "section/drawItems.h"
#include "section/sectionPath.h"
#include "section/sectionValues.h"

namespace render_tests {

using namespace KelvaneMain;

const std::vector<std::vector<float>> kHeldValues = {
    {16.22F, 16.59F, 16.39F, 16.76F, 17.13F, 16.93F, 17.3F},
    {12.72F, 13.09F, 12.89F, 13.26F, 13.63F, 13.43F, 13.8F},
    {9.22F, 9.59F, 9.39F, 9.76F, 10.13F, 9.93F, -1e35F}};

void HeldSection::SetUp() {
  support::resetState();
  settings.ShowLegend = settings.ShowTitles = 1;
  ocxNetNc::TitleLines = {"tiny.nc", "1990-01-02 12:00:00", "little run",
                          "potential temperature [degC]"};
  DrawItem item;
  item.name = "temp";
  item.maximum = item.plot_max = 17.3F;
  item.minimum = 9.22F;
  item.plot_min = 9;
  item.plot_interval = 1;
  DrawItems.push(item);
  Item_shown = 1;

  holdGrid(7, {0, 50, 200});
  for (int32_t k = 1; k <= 3; ++k) {
    for (int32_t c = 1; c <= 7; ++c) {
      section_values.store(
          c, k, kHeldValues[static_cast<std::size_t>(k - 1)][static_cast<std::size_t>(c - 1)]);
    }
  }
  section.ncols = 7;
  section.section_kind = kGeneralPath;
  section.section_length_km = 999.973598390379;
  section.column_cells = {{1, 2}, {2, 2}, {2, 3}, {3, 3}, {4, 3}, {4, 4}, {5, 4}};
  ocxNetNc::ncf.lon_values = {350, 352, 354, 356, 358, 360};
  ocxNetNc::ncf.lat_values = {-1, -0.5F, 0, 0.5F};
  ocxNetNc::ncf.dlon = 2;
  ocxNetNc::ncf.dlat = 0.5F;
}

void HeldSection::holdGrid(int32_t ncols, const std::vector<double>& depths) {
  section_values = {};
  section_values.size(ncols, static_cast<int32_t>(depths.size()));
  section_values.depths = {0.0};
  section_values.depths.insert(section_values.depths.end(), depths.begin(), depths.end());
  section_values.section_depth_max = static_cast<float>(depths.back());
  for (int32_t c = 1; c <= ncols; ++c) {
    for (int32_t k = 1; k <= section_values.nlevels(); ++k) section_values.store(c, k, 13.15F);
  }
  section.ncols = ncols;
}

void HeldSection::alongLatitude(int32_t ncols) {
  section.section_kind = kSameLatitude;
  holdGrid(ncols, {0, 50, 200});
  section.column_cells.clear();
  for (int32_t c = 1; c <= ncols; ++c) section.column_cells.push({c, 3});
}

void HeldSection::alongLongitude(int32_t ncols) {
  section.section_kind = kSameLongitude;
  holdGrid(ncols, {0, 50, 200});
  section.column_cells.clear();
  for (int32_t c = 1; c <= ncols; ++c) section.column_cells.push({3, c});
}

}  // namespace render_tests
