// How rows come to the colour-key editor and how they leave it for ColorKey.

#include <cmath>

#include "colorkey/KeyDialogs.h"
#include "colorkey/attempt.h"
#include "colorkey/colorKey.h"
#include "colorkey/frmAutoDiv.h"
#include "colorkey/frmColorKey.h"
#include "colorkey/frmVarName.h"
#include "colorkey/kewReading.h"
#include "colorkey/keyRows.h"
#include "util/rounding.h"

namespace ModColor {
namespace {

// An endless bound of the host's is a single as it stands.
float boundOf(double field) {
  return std::isinf(field) ? static_cast<float>(field) : util::storeSingle(field);
}

// What SaveColorKey stores; ColorKey changes only when all of it is there.
Key keyOf(const std::vector<frmColorKey::Row>& rows) {
  Key key;
  key.nDivision = util::roundToInteger(static_cast<double>(rows.size()));
  key.color.assign(key.nDivision);
  key.low.assign(key.nDivision);
  key.high.assign(key.nDivision);
  int32_t i = 0;
  for (const frmColorKey::Row& row : rows) {
    ++i;
    key.low(i) = boundOf(row.fldLowRange);
    key.high(i) = boundOf(row.fldHighRange);
    key.color(i) = row.lblColor;
  }
  return key;
}

}  // namespace

bool frmColorKey::LoadColorKey() {
  return attempt("frmColorKey LoadColorKey", [&] {
    const int16_t count = util::roundToInteger(ColorKey.nDivision);
    std::vector<Row> loaded;
    for (int32_t i = 1; i <= count; ++i) {
      loaded.push_back(
          {util::asDouble(ColorKey.low(i)), util::asDouble(ColorKey.high(i)), ColorKey.color(i)});
    }
    replaceRows(loaded.empty() ? rows : std::move(loaded));
  });
}

bool frmColorKey::SaveColorKey() {
  return attempt("frmColorKey SaveColorKey", [&] { ColorKey = keyOf(rows); });
}

void frmColorKey::cmdAutoDiv() {
  if (closed()) return;
  attempt("frmColorKey cmdAutoDiv", [&] {
    frmAutoDiv division;
    division.MinVal = rows.front().fldLowRange;
    division.MaxVal = rows.back().fldHighRange;
    division.Divisions = static_cast<int32_t>(rows.size());
    division.Load();
    dialogs_.ShowModal(division);
    if (division.Result() <= 0 || closed()) return;
    divideRows(division.MinVal, division.MaxVal, division.Divisions);
  });
}

void frmColorKey::divideRows(double minimum, double maximum, int32_t divisions) {
  const std::vector<RowRange> ranges = equalDivisions(minimum, maximum, divisions);
  std::vector<Row> divided(rows);
  divided.resize(ranges.size(), rows.back());
  for (std::size_t k = 0; k < ranges.size(); ++k) {
    divided[k].fldLowRange = ranges[k].low;
    divided[k].fldHighRange = ranges[k].high;
  }
  replaceRows(std::move(divided));
}

void frmColorKey::cmdImport() {
  if (closed()) return;
  attempt("frmColorKey cmdImport", [&] {
    const std::optional<std::string> fileName = dialogs_.ChooseKewFile();
    if (fileName && !closed()) OpenColorKey(*fileName);
  });
}

void frmColorKey::OpenColorKey(const std::string& fileName) {
  attempt("frmColorKey OpenColorKey", [&] {
    frmVarName choice;
    choice.filename(fileName);
    dialogs_.ShowModal(choice);
    if (choice.Result() < 0 || closed()) return;
    std::vector<Row> imported;
    readVariable(fileName, choice.varname(), [&](int32_t, const DivisionElement& division) {
      imported.push_back(
          {util::asDouble(division.low()), util::asDouble(division.high()), division.color()});
    });
    // A variable without divisions, or none of that name, brings no rows.
    if (!imported.empty()) replaceRows(std::move(imported));
  });
}

}  // namespace ModColor
