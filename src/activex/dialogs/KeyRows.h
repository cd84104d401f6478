#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "activex/dialogs/NumberFields.h"
#include "activex/dialogs/keys.h"
#include "colorkey/frmColorKey.h"

namespace activex {

// The windows of the editor's rows: as many as there is room for, however many rows there are.
// What they show follows VScroll1.
class KeyRows {
 public:
  // A window of a row: the how many-eth row in view, from 0, and which of its parts (ids.h).
  struct Place {
    int line = 0, part = 0;
  };

  KeyRows(ModColor::frmColorKey& dialog, NumberFields& fields, KeyTaker& keys)
      : dialog_(dialog), fields_(fields), keys_(keys) {}

  // Takes the columns from the headings of the dialog's template.
  void setUp(HWND dialog);

  // How many rows a height in pixels has room for, at least 1; and where row after row stands.
  int roomIn(int height) const;
  int pitch() const { return height_ + gap_; }
  // Makes what windows are missing for so many rows in view.
  void makeRoom(int lines);

  // Everything as the rows are now. A window about to go that has the focus passes it on.
  void show();
  // How many rows are in view.
  int shown() const;
  int32_t rowAt(int line) const { return dialog_.VScroll1.Value + line; }

  std::optional<Place> placeOf(HWND control) const;
  HWND control(Place place) const;
  // The focus to a place; to the row's first field when it cannot be there.
  void focus(Place place) const;

  void draw(const DRAWITEMSTRUCT& drawn, Place place) const;

 private:
  struct Column {
    int left = 0, width = 0;
  };
  Column columnOf(int heading) const;
  void makeLine(int line);
  HWND make(Place place, const wchar_t* kind, DWORD style, DWORD extendedStyle, Column column);
  void showLine(int line) const;
  void hideAfter(int lines) const;
  const ModColor::frmColorKey::Row& at(int32_t row) const {
    return dialog_.rows[static_cast<std::size_t>(row)];
  }
  // The row that a line shows; null for a line past the last row.
  ModColor::frmColorKey::Row* rowOf(int line);

  ModColor::frmColorKey& dialog_;
  NumberFields& fields_;
  KeyTaker& keys_;
  HWND window_ = nullptr;
  HWND last_ = nullptr;  // in the Tab order
  Column number_, low_, high_, color_, delete_;
  int top_ = 0, height_ = 0, gap_ = 0;
  int lines_ = 0;  // that have windows
  int room_ = 1;
};

}  // namespace activex
