#include "activex/dialogs/NumberFields.h"

#include <algorithm>
#include <utility>

#include "activex/dialogs/DialogFace.h"
#include "colorkey/numberField.h"
#include "platform/Desktop.h"

namespace activex {
namespace {

constexpr UINT kFocusMoved = WM_APP + 1;
constexpr COLORREF kWrongBox = RGB(255, 205, 205), kWrongText = RGB(0, 0, 0);
constexpr WPARAM kLongestNumber = 60;  // letters

template <class Number, class Spell, class Read>
NumberFields::Field fieldOf(HWND edit, std::function<Number*()> place, Spell spell, Read read,
                            std::string wanted) {
  return {edit,
          [=] {
            const Number* const number = place();
            return number != nullptr ? spell(*number) : std::string();
          },
          [=](const std::string& text) {
            Number* const number = place();
            const std::optional<Number> typed = read(text);
            if (number == nullptr || !typed) return false;
            *number = *typed;
            return true;
          },
          [=] {
            const Number* const number = place();
            return number != nullptr ? static_cast<double>(*number) : 0.0;
          },
          [=](double value) {
            if (Number* const number = place()) *number = static_cast<Number>(value);
          },
          std::move(wanted)};
}

bool isSeen(HWND control) { return (GetWindowLongPtrW(control, GWL_STYLE) & WS_VISIBLE) != 0; }

}  // namespace

NumberFields::~NumberFields() {
  if (wrongBrush_ != nullptr) DeleteObject(wrongBrush_);
}

void NumberFields::add(Field field) {
  SendMessageW(field.edit, EM_LIMITTEXT, kLongestNumber, 0);
  fields_.push_back({std::move(field)});
}

void NumberFields::show() {
  bool told = false;
  for (Held& field : fields_) {
    told |= mark(field, false);
    if (isSeen(field.edit)) show(field);
  }
  if (told) tell();
}

void NumberFields::giveUp() {
  bool told = false;
  for (Held& field : fields_) told |= giveUp(field);
  if (told) tell();
}

// On the way to a wrong text there may have been a number, which has been taken.
bool NumberFields::giveUp(Held& field) {
  if (field.wrong) field.put(field.before);
  return mark(field, false);
}

void NumberFields::show(Held& field) {
  const bool before = std::exchange(showing_, true);
  const std::string text = field.text();
  if (textOf(field.edit) != text) {
    setText(field.edit, text);
    if (GetFocus() == field.edit) SendMessageW(field.edit, EM_SETSEL, 0, -1);
  }
  showing_ = before;
  field.before = field.value();
}

bool NumberFields::allRight() {
  const Held* const wrong = firstWrong();
  if (wrong == nullptr) return true;
  SetFocus(wrong->edit);
  SendMessageW(wrong->edit, EM_SETSEL, 0, -1);
  MessageBeep(MB_ICONWARNING);
  return false;
}

void NumberFields::onCommand(HWND control, int event) {
  Held* const field = find(control);
  if (field == nullptr) return;
  if (event == EN_CHANGE && !showing_) onChange(*field);
  // It may have been left and come back to before kFocusMoved arrived.
  if (event == EN_SETFOCUS && !field->wrong) field->before = field->value();
  // Where the focus goes to is known only when it has arrived there.
  if (event == EN_KILLFOCUS) PostMessageW(GetParent(control), kFocusMoved, 0, 0);
}

void NumberFields::onChange(Held& field) {
  mark(field, !field.take(textOf(field.edit)));
  tell();
}

void NumberFields::onFocusMoved() {
  const HWND dialog = GetParent(line_.window()), focus = GetFocus();
  // The user may be looking at another program, and come back to finish the number.
  if (!IsChild(dialog, focus)) return;
  bool told = false;
  for (Held& field : fields_) {
    // On the way to OK a wrong text stays, so that OK can refuse it.
    const bool kept = field.edit == focus || (field.wrong && focus == GetDlgItem(dialog, IDOK));
    if (kept || !isSeen(field.edit)) continue;
    told |= giveUp(field);
    show(field);
  }
  if (told) tell();
}

bool NumberFields::mark(Held& field, bool wrong) {
  if (std::exchange(field.wrong, wrong) == wrong) return false;
  InvalidateRect(field.edit, nullptr, TRUE);
  return true;
}

void NumberFields::tell() {
  const Held* const wrong = firstWrong();
  line_.say(wrong != nullptr ? wrong->wanted : std::string());
}

NumberFields::Held* NumberFields::find(HWND edit) {
  const auto found = std::find_if(fields_.begin(), fields_.end(),
                                  [edit](const Held& field) { return field.edit == edit; });
  return found != fields_.end() ? &*found : nullptr;
}

const NumberFields::Held* NumberFields::firstWrong() const {
  const auto found = std::find_if(fields_.begin(), fields_.end(), [](const Held& field) {
    return field.wrong && isSeen(field.edit);
  });
  return found != fields_.end() ? &*found : nullptr;
}

std::optional<INT_PTR> NumberFields::onMessage(UINT message, WPARAM wide, LPARAM longer) {
  const auto dc = reinterpret_cast<HDC>(wide);
  const auto control = reinterpret_cast<HWND>(longer);
  if (message == kFocusMoved) {
    onFocusMoved();
    return TRUE;
  }
  if (message == WM_CTLCOLOREDIT) {
    const Held* const field = find(control);
    if (field == nullptr || !field->wrong) return {};
    if (wrongBrush_ == nullptr) wrongBrush_ = CreateSolidBrush(kWrongBox);
    SetTextColor(dc, kWrongText);
    SetBkColor(dc, kWrongBox);
    return reinterpret_cast<INT_PTR>(wrongBrush_);
  }
  return line_.onMessage(message, wide, longer);
}

NumberFields::Field numberField(HWND edit, std::function<double*()> place) {
  const std::string separator = platform::desktop().DecimalSeparator();
  return fieldOf<double>(
      edit, std::move(place), [=](double number) { return ModColor::fieldText(number, separator); },
      [=](const std::string& text) { return ModColor::numberOfField(text, separator); },
      "Please enter a number such as " + ModColor::fieldText(12.5, separator) + ".");
}

NumberFields::Field countField(HWND edit, std::function<int32_t*()> place) {
  return fieldOf<int32_t>(
      edit, std::move(place), [](int32_t count) { return std::to_string(count); },
      ModColor::countOfField, "Please enter a whole number such as 10.");
}

}  // namespace activex
