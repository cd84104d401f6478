#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "activex/dialogs/ProblemLine.h"

namespace activex {

// The numeric edit boxes of a dialog. What is typed goes into the dialog's value at once, as soon
// as it is a number. What is none is marked, with a line of text that says why; given up, the value
// is again what the box showed before it was typed into.
class NumberFields {
 public:
  struct Field {
    HWND edit = nullptr;
    // The value as text, and the value from a text: false when the text is none, or when what
    // the box stands for is not there.
    std::function<std::string()> text;
    std::function<bool(const std::string&)> take;
    // The value itself, whatever its text; a count as well.
    std::function<double()> value;
    std::function<void(double)> put;
    std::string wanted;  // what the line says of a wrong text
  };

  NumberFields() = default;
  ~NumberFields();
  NumberFields(const NumberFields&) = delete;
  NumberFields& operator=(const NumberFields&) = delete;

  // Where the line of text is; then the fields.
  void setProblemLine(HWND line) { line_.setUp(line); }
  void add(Field field);

  // Every box that is to be seen shows its value. No box keeps a mark.
  void show();
  // Wrong texts are given up, as they are when their box is left: to be called before the boxes
  // come to stand for other values.
  void giveUp();
  // The line of text; what others put on it stays until the next number is typed.
  const ProblemLine& line() const { return line_; }
  // Whether every text to be seen is a number. If not, the first that is none gets the focus.
  bool allRight();

  // The dialog hands on its notifications and these messages.
  void onCommand(HWND control, int event);
  std::optional<INT_PTR> onMessage(UINT message, WPARAM wide, LPARAM longer);

 private:
  struct Held : Field {
    bool wrong = false;
    double before = 0;  // the value before it was typed into
  };
  Held* find(HWND edit);
  void show(Held& field);
  // Whether there was something to give up; and whether the mark was another.
  bool giveUp(Held& field);
  void onChange(Held& field);
  void onFocusMoved();
  bool mark(Held& field, bool wrong);
  const Held* firstWrong() const;
  void tell();

  ProblemLine line_;
  std::vector<Held> fields_;
  bool showing_ = false;  // the texts change because the values do
  HBRUSH wrongBrush_ = nullptr;
};

// Fields of the dialogs' two kinds of number, whose value is at the place told; null while there
// is no such place.
NumberFields::Field numberField(HWND edit, std::function<double*()> place);
NumberFields::Field countField(HWND edit, std::function<int32_t*()> place);

}  // namespace activex
