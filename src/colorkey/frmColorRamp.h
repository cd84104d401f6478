#pragma once

#include <cstdint>

#include "platform/Dialog.h"
#include "platform/PictureBox.h"

namespace ModColor {

class KeyDialogs;

// Asks for the first and the last colour of a ramp over the rows of the editor.
class frmColorRamp : public platform::Dialog {
 public:
  explicit frmColorRamp(KeyDialogs& dialogs) : dialogs_(dialogs) {}

  // The swatches: each opens the colour chooser preset to its colour.
  void lblFirstColor_Click();
  void lblLastColor_Click();
  void OK();
  void Cancel();

  int32_t Result() const { return result_; }  // 1 after OK, else -1
  platform::Colour FirstColor() const { return firstColor_; }
  platform::Colour LastColor() const { return lastColor_; }

 private:
  void chooseInto(platform::Colour& swatch);

  KeyDialogs& dialogs_;
  int32_t result_ = -1;
  platform::Colour firstColor_ = platform::rgb(255, 0, 0);
  platform::Colour lastColor_ = platform::rgb(0, 0, 255);
};

}  // namespace ModColor
