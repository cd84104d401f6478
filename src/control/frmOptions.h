#pragma once

#include <cstdint>

#include "control/Dialogs.h"
#include "platform/Dialog.h"

namespace control {

// "Section View Options": how the item is drawn, and the way to the colour-key editor. Clicks
// act on the drawing settings at once; Cancel puts the settings and the item back.
class frmOptions : public platform::Dialog {
 public:
  explicit frmOptions(Dialogs& dialogs) : dialogs_(dialogs) {}

  // Saves what Cancel restores, repairs an item below 1 and selects the option of the state.
  void Load();

  // The group's selected button:
  // 0 section, 1 section with contour lines, 2 profiles in one graph, 3 separate profiles.
  int32_t optViewStyle() const { return selected_; }
  void optViewStyle_Click(int32_t index);  // another index than 0..3 does nothing
  void OK();
  void Cancel();
  enum class Legend { Done, NotOpened, NotSaved };
  // The editor for the current key; a key edited with OK is saved in the data set's KEW file, and
  // no Cancel takes that back. A key that the editor cannot load is not edited. When it was not
  // opened or its key not saved, the last reported failure says why.
  Legend EditLegend();

  int32_t Result() const { return result_; }  // 1 after OK, else -1

 private:
  struct Saved {
    int32_t Item_shown = 0, ViewMode = 0, ViewStyle = 0, ProfileStyle = 0, TimeShown = 0;
    int32_t Item_shown_again = 0;  // kept with the others, never restored
  };
  Dialogs& dialogs_;
  Saved saved_;
  int32_t selected_ = 0;
  int32_t result_ = -1;
};

// Loads the dialog and shows it modally; its result.
int32_t OpenOptionsForm(Dialogs& dialogs);

}  // namespace control
