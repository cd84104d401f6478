#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Dialog.h"
#include "platform/PictureBox.h"

namespace ModColor {

class KeyDialogs;

// The colour-key editor: one row for each division, worked on apart from ColorKey, which is read
// by LoadColorKey and written by OK alone. Rows count from 0; a row that is not there is left
// alone. A run-time failure is reported under "frmColorKey" and the routine's name and leaves the
// rows as they were. More rows than a 16-bit counter can count are such a failure (overflow).
class frmColorKey : public platform::Dialog {
 public:
  // A row's fields and swatch.
  struct Row {
    double fldLowRange = 0, fldHighRange = 1;
    platform::Colour lblColor = platform::rgb(255, 255, 255);
    bool operator==(const Row&) const = default;
  };

  explicit frmColorKey(KeyDialogs& dialogs) : dialogs_(dialogs) {}

  // ColorKey into rows, to be called before the dialog is shown; without divisions the built-in
  // row stays as it was designed. False after a failure: the key is more than can be edited, and
  // OK would put something else in its place.
  bool LoadColorKey();
  std::vector<Row> rows = std::vector<Row>(1);  // never empty

  void lblColor_Click(int32_t row);  // the colour chooser, preset to the row's colour
  void cmdAdd();                     // a copy of the last row at the end, scrolled into view
  void cmdDelete(int32_t row);       // nothing when it is the only one
  void cmdAutoDiv();                 // new rows get the last row's colour
  void cmdColorRamp();
  void cmdImport();  // a variable's key of another file replaces the rows
  void cmdOK();      // rows into ColorKey; stays open when that fails
  void cmdCancel();

  // The scroll bar: the first row shown, 0..Max. The face says how many rows fit, and moves
  // Value. As many rows as fit are always in view: at the end, deleting pulls earlier ones in.
  // Rows that come from elsewhere (loaded, divided, imported) are shown from the first one on.
  struct ScrollBar {
    int16_t Value = 0, Max = 0, LargeChange = 1;
  };
  ScrollBar VScroll1;
  void ResetScrollbar(int32_t rowsThatFit);

  // 1 after OK, -1 after Cancel, 0 when closed otherwise.
  int32_t Result() const { return result_; }

 private:
  bool SaveColorKey();
  void OpenColorKey(const std::string& fileName);
  void divideRows(double minimum, double maximum, int32_t divisions);
  void replaceRows(std::vector<Row> replacement);
  bool has(int32_t row) const;
  Row& at(int32_t row) { return rows[static_cast<std::size_t>(row)]; }

  KeyDialogs& dialogs_;
  int32_t rowsThatFit_ = 1;
  int32_t result_ = 0;
};

}  // namespace ModColor
