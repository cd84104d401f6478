// Writes everything a section is made of, bit for bit: columns, values, marks, labels, colours
// and every drawing operation on surfaces with fixed metrics. The native and the Windows build
// of this program must write the same bytes for the same data sets.
//
// Usage: section_dump OUT FILE VARIABLE "lon,lat lon,lat ..." TIME WIDTHxHEIGHT [VIEW]
// VIEW: profiles (a graph each), profiles-single, or contours; the section alone without it.
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "colorkey/cellColours.h"
#include "control/KelvaneCtl.h"
#include "netcdf/ncf.h"
#include "netcdf/title.h"
#include "render/settings.h"
#include "section/drawItems.h"
#include "section/sectionPath.h"
#include "section/sectionValues.h"
#include "support/RecordingDesktop.h"
#include "support/RecordingPictureBox.h"
#include "util/numberText.h"

namespace {

using namespace KelvaneMain;

std::string bits(float value) {
  char text[9];
  std::snprintf(text, sizeof text, "%08x", std::bit_cast<uint32_t>(value));
  return text;
}

std::string bits(double value) {
  char text[17];
  std::snprintf(text, sizeof text, "%016llx",
                static_cast<unsigned long long>(std::bit_cast<uint64_t>(value)));
  return text;
}

void dumpSection(std::ostream& out) {
  out << "columns " << section.ncols << " kind " << section.section_kind << " km "
      << bits(section.section_length_km) << '\n';
  for (int32_t p = 1; p <= section.npts; ++p) {
    out << "point " << p << " column " << section.point_column(p) << " cell "
        << section.point_cell(p).i << ',' << section.point_cell(p).j << " ["
        << section.point_label(p) << "]\n";
  }
  for (const Cell& cell : section.column_cells) {
    const LonLat place = cellPlace(cell);
    out << "cell " << cell.i << ',' << cell.j << ' ' << bits(place.lon) << ' ' << bits(place.lat)
        << '\n';
  }
}

void dumpValues(std::ostream& out) {
  const ModColor::CellColours colourOf;
  for (int32_t c = 1; c <= section_values.ncols(); ++c) {
    for (int32_t k = 1; k <= section_values.nlevels(); ++k) {
      const float value = section_values.value(c, k);
      out << c << ' ' << k << ' ' << section_values.mark(c, k) << ' ' << bits(value) << ' '
          << colourOf(value) << ' ' << util::losslessText(value) << '\n';
    }
  }
}

void dumpItems(std::ostream& out) {
  for (const DrawItem& item : DrawItems) {
    out << "item " << item.name << ' ' << bits(item.minimum) << ' ' << bits(item.maximum) << ' '
        << bits(item.plot_min) << ' ' << bits(item.plot_max) << ' ' << bits(item.plot_interval)
        << '\n';
  }
  for (int32_t step = 1; step <= ocxNetNc::ncf.ntime; ++step) {
    out << "time " << bits(ocxNetNc::ncf.time_values(step)) << '\n';
  }
  for (const std::string& line : ocxNetNc::TitleLines) out << "title [" << line << "]\n";
}

void dumpPicture(std::ostream& out, const support::RecordingPictureBox& box) {
  out << "picture " << box.name << '\n';
  for (const support::Operation& op : box.operations) {
    out << static_cast<int>(op.kind) << ' ' << bits(op.x1) << ' ' << bits(op.y1) << ' '
        << bits(op.x2) << ' ' << bits(op.y2) << ' ' << op.colour << ' ' << op.drawWidth << ' '
        << bits(op.font.Size) << op.font.Bold << op.font.Underline << " [" << op.text << "]\n";
  }
}

// The numbers of a text, separated by anything else.
std::vector<float> numbersOf(const std::string& text) {
  std::vector<float> numbers;
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at < end) {
    float number = 0;
    const auto [next, error] = std::from_chars(at, end, number);
    if (error == std::errc()) numbers.push_back(number);
    at = error == std::errc() ? next : at + 1;
  }
  return numbers;
}

// False for a view that there is none of.
bool chooseView(control::KelvaneCtl& ctl, const std::string& view) {
  if (view == "profiles" || view == "profiles-single") {
    ctl.DrawProfile(true);
    settings.ProfileStyle = view == "profiles" ? 0 : 1;
    return true;
  }
  if (view == "contours") {
    settings.ViewStyle = 1;
    return true;
  }
  return view.empty();
}

int run(const std::vector<std::string>& args) {
  support::RecordingDesktop desktop;
  const std::vector<float> size = numbersOf(args[5]);
  support::RecordingPictures boxes(static_cast<int32_t>(size.at(0)),
                                   static_cast<int32_t>(size.at(1)));
  control::KelvaneCtl ctl(boxes.pictures(), desktop);
  if (ctl.NcFile(args[1]) != 1 || ctl.SetVarByName(args[2]) != 1) {
    std::cerr << ctl.ErrorMessage() << '\n';
    return 1;
  }
  if (!chooseView(ctl, args.size() > 6 ? args[6] : "")) {
    std::cerr << "no view " << args[6] << '\n';
    return 2;
  }
  ctl.NewSection();
  const std::vector<float> path = numbersOf(args[3]);
  for (std::size_t p = 0; p + 1 < path.size(); p += 2) ctl.AddSection(path[p], path[p + 1]);
  if (ctl.EndSection() != 1) {
    std::cerr << ctl.ErrorMessage() << '\n';
    return 1;
  }
  ctl.SetCurrentTime(static_cast<int32_t>(numbersOf(args[4]).at(0)));

  std::ofstream out(args[0], std::ios::binary);
  dumpSection(out);
  dumpItems(out);
  dumpValues(out);
  for (const auto* box : {&boxes.picDateTime, &boxes.picSection, &boxes.picContours,
                          &boxes.Picture1}) {
    dumpPicture(out, *box);
  }
  out.close();
  if (!out) std::cerr << "cannot write " << args[0] << '\n';
  return out ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> args(argv + 1, argv + argc);
  if (args.size() != 6 && args.size() != 7) {
    std::cerr << "usage: section_dump OUT FILE VARIABLE PATH TIME WIDTHxHEIGHT [VIEW]\n";
    return 2;
  }
  return run(args);
}
