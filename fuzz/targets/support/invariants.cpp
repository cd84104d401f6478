#include "targets/support/invariants.h"

#include "colorkey/colorKey.h"
#include "netcdf/ncf.h"
#include "netcdf/title.h"
#include "render/settings.h"
#include "section/drawItems.h"
#include "section/sectionPath.h"
#include "section/sectionValues.h"
#include "targets/support/must.h"

namespace fuzz {
namespace {

using ocxNetNc::ncf;

void checkCatalogue() {
  MUST(ncf.NcId >= -1);
  MUST(ncf.ntime >= 0 && ncf.nlevels >= 0 && ncf.nlon >= 0 && ncf.nlat >= 0);
  MUST(ncf.NcDims.size() <= 100'000 && ncf.NcVars.size() <= 100'000);
  for (const ocxNetNc::NcVar& variable : ncf.NcVars) {
    MUST(variable.NDims >= 0 && variable.NDims <= ocxNetNc::kDimensionLimit);
    MUST(variable.NAtts >= 0 && variable.NAtts <= ocxNetNc::kAttributeLimit);
    // The limit is that of the file; as UTF-8 a letter can have three bytes.
    MUST(variable.Name.size() <= 3 * static_cast<std::size_t>(ocxNetNc::kNameLimit));
  }
  MUST(ocxNetNc::TitleLines.size() == 4);
}

void checkSelection() {
  using namespace KelvaneMain;
  MUST(Item_shown >= 0 && VarShown >= 0);
  for (const DrawItem& item : DrawItems) MUST(!item.name.empty() && item.variable >= 1);
  MUST(SectionPoints.size() == NumSectionPoints);
}

void checkSection() {
  using namespace KelvaneMain;
  MUST(section.ncols >= 0 && section.ncols == section.column_cells.size());
  MUST(section.npts >= 0);
  MUST(section.point_column.size() == section.npts && section.point_cell.size() == section.npts);
  MUST(section.point_lonlat.size() == section.npts && section.point_label.size() == section.npts);
  for (const int32_t column : section.point_column) MUST(column >= 0);
  for (int32_t c = 1; c <= section.ncols; ++c) {
    MUST(section.column_cells(c).i >= 1 && section.column_cells(c).j >= 1);
    if (c > 1) MUST(!(section.column_cells(c) == section.column_cells(c - 1)));
  }
  MUST(section.section_kind >= kGeneralPath && section.section_kind <= kSameLongitude);
}

void checkValues() {
  using namespace KelvaneMain;
  const auto cells = static_cast<std::size_t>(section_values.ncols()) *
                     static_cast<std::size_t>(section_values.nlevels());
  MUST(section_values.values().size() == cells && section_values.marks().size() == cells);
  if (section_values.empty()) return;
  MUST(section_values.depths.size() == static_cast<std::size_t>(section_values.nlevels()) + 1);
  for (int32_t c = 1; c <= section_values.ncols(); ++c) {
    for (int32_t k = 1; k <= section_values.nlevels(); ++k) {
      const int16_t mark = section_values.mark(c, k);
      MUST(mark == 0 || (mark == 1 && isValue(section_values.value(c, k))));
    }
  }
}

void checkKey() {
  const ModColor::Key& key = ModColor::ColorKey;
  MUST(key.nDivision >= -1 && key.low.size() == key.high.size());
  MUST(key.low.size() == key.color.size() && key.nDivision <= key.low.size());
  MUST(ModColor::bUseKey >= -1 && ModColor::bUseKey <= 4);
}

}  // namespace

void checkRecords() {
  checkCatalogue();
  checkSelection();
  checkSection();
  checkValues();
  checkKey();
  MUST(KelvaneMain::settings.ViewMode >= 0 && KelvaneMain::settings.ViewMode <= 2);
}

}  // namespace fuzz
