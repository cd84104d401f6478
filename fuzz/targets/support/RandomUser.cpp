#include "targets/support/RandomUser.h"

#include <algorithm>

#include "colorkey/numberField.h"
#include "targets/support/must.h"

namespace fuzz {
namespace {

using ModColor::frmColorKey;

void check(const frmColorKey& dialog) {
  const auto count = static_cast<int32_t>(dialog.rows.size());
  MUST(count >= 1 && count <= 32767);
  const auto& bar = dialog.VScroll1;
  MUST(bar.LargeChange >= 1 && bar.Max == std::max(count - bar.LargeChange, 0));
  MUST(bar.Value >= 0 && bar.Value <= bar.Max);
  MUST(dialog.Result() >= -1 && dialog.Result() <= 1);
  MUST(dialog.closed() || dialog.Result() == 0);
}

}  // namespace

template <class Form>
void RandomUser::play(Form& dialog) {
  MUST(!dialog.closed());
  // Some events come late: after the dialog was closed.
  for (int32_t left = 2 + input_.choice(30); left > 0 && !input_.atEnd(); --left) {
    event(dialog);
    if (dialog.closed() && input_.coin()) break;
  }
  if (!dialog.closed()) dialog.closeBox();
}

// A number as a face hands it over: from the text of an edit field, or whatever it was preset to.
double RandomUser::number() {
  if (input_.coin()) return input_.real();
  return ModColor::numberOfField(input_.text(32), input_.coin() ? "." : ",").value_or(0);
}

void RandomUser::ShowModal(control::frmOptions& dialog) {
  MUST(dialog.optViewStyle() >= 0 && dialog.optViewStyle() <= 3);
  play(dialog);
  MUST(dialog.Result() == 1 || dialog.Result() == -1);
}

void RandomUser::event(control::frmOptions& dialog) {
  switch (input_.choice(6)) {
    case 0:
      dialog.OK();
      MUST(dialog.closed());
      break;
    case 1:
      dialog.Cancel();
      MUST(dialog.closed());
      break;
    case 2:
      dialog.closeBox();
      break;
    case 3:
      dialog.optViewStyle_Click(input_.integer());
      break;
    default:
      dialog.EditLegend();
      break;
  }
  MUST(dialog.optViewStyle() >= 0 && dialog.optViewStyle() <= 3);
}

void RandomUser::ShowModal(frmColorKey& dialog) {
  dialog.ResetScrollbar(5);
  check(dialog);
  play(dialog);
  check(dialog);
}

// What a face changes by itself.
void RandomUser::edit(frmColorKey& dialog) {
  if (dialog.closed()) return;
  auto& bar = dialog.VScroll1;
  bar.Value = static_cast<int16_t>(std::clamp(input_.integer(), 0, int32_t{bar.Max}));
  const auto place = static_cast<std::size_t>(input_.byte()) % dialog.rows.size();
  dialog.rows[place].fldLowRange = number();
  dialog.rows[place].fldHighRange = number();
}

void RandomUser::event(frmColorKey& dialog) {
  const bool before = dialog.closed();
  const std::size_t count = dialog.rows.size();
  switch (input_.choice(13)) {
    case 0:
      dialog.cmdOK();
      break;
    case 1:
      dialog.cmdCancel();
      MUST(dialog.closed());
      break;
    case 2:
      dialog.closeBox();
      break;
    case 3:
      dialog.lblColor_Click(input_.integer());
      break;
    case 4:
      dialog.cmdDelete(input_.integer());
      break;
    case 5:
      dialog.cmdAutoDiv();
      break;
    case 6:
      dialog.cmdColorRamp();
      break;
    case 7:
      dialog.cmdImport();
      break;
    case 8:
      dialog.ResetScrollbar(input_.integer());
      break;
    case 9:
    case 10:
      dialog.cmdAdd();
      break;
    default:
      edit(dialog);
      break;
  }
  MUST(!before || dialog.rows.size() == count);
  check(dialog);
}

void RandomUser::ShowModal(ModColor::frmAutoDiv& dialog) {
  dialog.fldMinVal = input_.coin() ? number() : dialog.fldMinVal;
  dialog.fldMaxVal = input_.coin() ? number() : dialog.fldMaxVal;
  dialog.fldDivisions = input_.coin() ? ModColor::countOfField(input_.text(16)).value_or(1)
                                      : input_.integer();
  // Tens of thousands of rows take their time; a few of them are enough.
  if (dialog.fldDivisions > 500 && input_.choice(16) != 15) dialog.fldDivisions = 500;
  const int32_t how = input_.choice(4);
  if (how < 2) dialog.OK();
  if (how == 2) dialog.Cancel();
  if (!dialog.closed()) dialog.closeBox();
  MUST(dialog.Result() == (how < 2 ? 1 : how == 2 ? -1 : 0));
}

void RandomUser::ShowModal(ModColor::frmColorRamp& dialog) {
  if (input_.coin()) dialog.lblFirstColor_Click();
  if (input_.coin()) dialog.lblLastColor_Click();
  const int32_t how = input_.choice(4);
  if (how < 2) dialog.OK();
  if (how == 2) dialog.Cancel();
  if (!dialog.closed()) dialog.closeBox();
  MUST(dialog.Result() == (how < 2 ? 1 : -1));
}

void RandomUser::ShowModal(ModColor::frmVarName& dialog) {
  dialog.ListIndex = input_.integer();
  const int32_t how = input_.choice(4);
  if (how < 2) dialog.OK();
  if (how == 2) dialog.Cancel();
  if (!dialog.closed()) dialog.closeBox();
  MUST(dialog.Result() == (how < 2 ? 1 : -1));
  MUST(dialog.varname().empty() ||
       std::ranges::find(dialog.lstVarNames(), dialog.varname()) != dialog.lstVarNames().end());
}

std::optional<platform::Colour> RandomUser::ChooseColor(platform::Colour) {
  if (input_.coin()) return std::nullopt;
  return input_.integer();
}

std::optional<std::string> RandomUser::ChooseKewFile() {
  const auto place = static_cast<std::size_t>(input_.byte()) % (files_.size() + 1);
  if (place == files_.size()) return std::nullopt;
  return files_[place];
}

}  // namespace fuzz
