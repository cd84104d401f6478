#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "colorkey/colorKey.h"
#include "support/ScriptedDialogs.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"
#include "util/lastError.h"

// The dialogs of the colour key in a freshly loaded library, with a scripted user.
class KeyDialogTest : public testing::Test {
 protected:
  using Row = ModColor::frmColorKey::Row;

  KeyDialogTest() { support::resetState(); }
  ~KeyDialogTest() override {
    EXPECT_TRUE(dialogs.done());
    support::resetState();
  }

  // A KEW file of these elements.
  std::string kewFile(const std::string& variables) const {
    const std::string name = folder.file("other.kew");
    std::ofstream(name, std::ios::binary)
        << "<?xml version=\"1.0\"?><section>" << variables << "</section>";
    return name;
  }
  static std::string division(const std::string& low, const std::string& high,
                              const std::string& color) {
    return "<division><low>" + low + "</low><high>" + high + "</high><color>" + color +
           "</color></division>";
  }

  // A colour key of n divisions: i..i + 0.5 in the colour i.
  static void makeKey(int32_t n) {
    ModColor::NewColorKey();
    for (int32_t i = 1; i <= n; ++i) {
      ModColor::AddColorKey(static_cast<float>(i), static_cast<float>(i) + 0.5F, i);
    }
  }
  static Row rowOf(int32_t i) { return {static_cast<double>(i), i + 0.5, i}; }
  static std::vector<Row> rowsOf(int32_t n) {
    std::vector<Row> rows;
    for (int32_t i = 1; i <= n; ++i) rows.push_back(rowOf(i));
    return rows;
  }
  // What ColorKey holds, as rows.
  static std::vector<Row> key() {
    std::vector<Row> rows;
    for (int32_t i = 1; i <= ModColor::ColorKey.nDivision; ++i) {
      rows.push_back({static_cast<double>(ModColor::ColorKey.low(i)),
                      static_cast<double>(ModColor::ColorKey.high(i)),
                      ModColor::ColorKey.color(i)});
    }
    return rows;
  }

  support::TempFolder folder;
  support::ScriptedDialogs dialogs;
};

namespace ModColor {
inline void PrintTo(const frmColorKey::Row& row, std::ostream* out) {
  *out << "(" << row.fldLowRange << ", " << row.fldHighRange << ", " << row.lblColor << ")";
}
}  // namespace ModColor
