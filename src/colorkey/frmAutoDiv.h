#pragma once

#include <cstdint>

#include "platform/Dialog.h"

namespace ModColor {

// Asks for a value range and a number of equal divisions. Nothing is checked.
class frmAutoDiv : public platform::Dialog {
 public:
  // What the caller presets and reads back.
  double MinVal = 0, MaxVal = 0;
  int32_t Divisions = 0;

  // Copies the properties into the fields; call it before the dialog is shown.
  void Load();
  double fldMinVal = 0, fldMaxVal = 0;
  int32_t fldDivisions = 0;

  void OK();  // copies the fields back
  void Cancel();

  // 1 after OK, -1 after Cancel, 0 when closed otherwise.
  int32_t Result() const { return result_; }

 private:
  int32_t result_ = 0;
};

}  // namespace ModColor
