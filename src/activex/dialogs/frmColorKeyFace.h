#pragma once

#include "activex/dialogs/DialogFace.h"
#include "activex/dialogs/KeyRows.h"
#include "activex/dialogs/NumberFields.h"
#include "activex/dialogs/keys.h"
#include "colorkey/frmColorKey.h"

namespace activex {

// "Edit Color Key". Up, Down, Page Up, Page Down, Ctrl+Home and Ctrl+End go from row to row; Tab
// goes on to rows that are out of view. A higher window shows more rows.
class frmColorKeyFace final : public DialogFace, private KeyTaker {
 public:
  explicit frmColorKeyFace(ModColor::frmColorKey& dialog);

 protected:
  HWND onInit() override;
  void onCommand(int control, int event) override;
  std::optional<INT_PTR> onMessage(UINT message, WPARAM wide, LPARAM longer) override;

 private:
  void onButton(int control);
  void onRowButton(KeyRows::Place place);
  bool takesKey(HWND control, WPARAM key) override;
  void onKey(HWND control, WPARAM key) override;
  void onScroll(int request, int position);
  void onWheel(int delta);
  void limitSize(MINMAXINFO& limits) const;
  // Measures everything as the template has it, even where the window came out smaller.
  void measure();
  // Not larger than there is screen for it.
  void fitScreen();

  // Where everything is in a window of this height, and what is to be seen.
  void layOut(int clientHeight);
  void show();
  // The first row in view; the focus stays with its row while that is in view.
  void scrollTo(int32_t row);
  // The focus to a part of a row, which is scrolled into view.
  void goTo(int32_t row, int part);
  // An event of the dialog, with everything shown as it is then. A failure is told to the user.
  template <class Event>
  void happens(Event&& event);

  ModColor::frmColorKey& dialog_;
  NumberFields fields_;
  KeyRows rows_;
  RECT frame_ = {}, scroll_ = {}, add_ = {}, problem_ = {};  // as the template has them
  int clientHeight_ = 0, leastHeight_ = 0;
  SIZE window_ = {};  // at first
  int wheel_ = 0;     // turned, and not yet scrolled
};

}  // namespace activex
