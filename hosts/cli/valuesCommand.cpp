#include "valuesCommand.h"

#include <string>
#include <vector>

#include "BlankPictureBox.h"
#include "netcdf/ncf.h"
#include "section/sectionPath.h"
#include "section/sectionValues.h"
#include "terminal.h"
#include "util/numberText.h"

namespace cli {
namespace {

using KelvaneMain::section;
using KelvaneMain::section_values;

// The shortest text that reads back to the number: of the single where one holds it.
std::string depthText(double depth) {
  const float single = static_cast<float>(depth);
  return static_cast<double>(single) == depth ? util::losslessText(single)
                                              : util::losslessText(depth);
}

double kilometres(KelvaneMain::LonLat from, KelvaneMain::LonLat to) {
  return KelvaneMain::SectionDistance(static_cast<double>(from.lon), static_cast<double>(from.lat),
                                      static_cast<double>(to.lon), static_cast<double>(to.lat)) /
         1000.0;
}

// The fields of column c that all its levels share, each with the comma behind it.
std::string columnText(int32_t c, double km) {
  const KelvaneMain::Cell cell = section.column_cells(c);
  std::string text;
  for (const int32_t number : {c, cell.i, cell.j}) text += util::generalText(number) + ",";
  text += util::losslessText(ocxNetNc::ncf.lon_values(cell.i)) + ",";
  text += util::losslessText(ocxNetNc::ncf.lat_values(cell.j)) + ",";
  text += util::losslessText(static_cast<float>(km)) + ",";
  return text;
}

void writeRows(Output& output) {
  const int32_t levels = section_values.nlevels();
  std::vector<std::string> levelTexts;
  for (int32_t k = 1; k <= levels; ++k) {
    levelTexts.push_back(util::generalText(k) + "," + depthText(section_values.depth(k)) + ",");
  }
  double km = 0.0;
  KelvaneMain::LonLat before{};
  for (int32_t c = 1; c <= section_values.ncols(); ++c) {
    const KelvaneMain::LonLat place = KelvaneMain::cellPlace(section.column_cells(c));
    if (c > 1) km += kilometres(before, place);
    before = place;
    const std::string column = columnText(c, km);
    for (int32_t k = 1; k <= levels; ++k) {
      const float value = section_values.value(c, k);
      output.write(column);
      output.write(levelTexts[static_cast<std::size_t>(k - 1)]);
      if (KelvaneMain::isValue(value)) output.write(util::losslessText(value));
      output.write("\n");
    }
  }
}

}  // namespace

void values(const ValuesRequest& request) {
  BlankPictures pictures;
  TerminalDesktop desktop;
  control::KelvaneCtl control(pictures.pictures(), desktop);
  prepareSection(control, request.section);
  // Nobody looks at the picture, so nobody misses what it lacks.
  shortfallOf(control, desktop, [&] { control.SetCurrentTime(request.step); });
  noteEmptySection();
  Output output;
  output.write("column,i,j,lon,lat,km,level,depth,value\n");
  writeRows(output);
  output.finish();
}

}  // namespace cli
