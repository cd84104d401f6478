#include "control/frmOptions.h"

#include "colorkey/frmColorKey.h"
#include "colorkey/kewFile.h"
#include "render/settings.h"
#include "section/drawItems.h"
#include "util/lastError.h"

namespace control {

using namespace KelvaneMain;

namespace {

int32_t variableOf(int32_t item) { return DrawItems.has(item) ? DrawItems(item).variable : 0; }

}  // namespace

void frmOptions::Load() {
  saved_ = {Item_shown, settings.ViewMode, settings.ViewStyle, settings.ProfileStyle,
            TimeShown,  Item_shown};
  if (Item_shown < 1) Item_shown = 1;
  if (settings.ViewMode == kProfileView) {
    selected_ = settings.ProfileStyle == 1 ? 2 : 3;
  } else {
    selected_ = settings.ViewStyle < 1 ? 0 : 1;
  }
}

void frmOptions::optViewStyle_Click(int32_t index) {
  if (closed() || index < 0 || index > 3) return;
  selected_ = index;
  if (index < 2) {
    settings.ViewMode = kSectionView;
    settings.ViewStyle = index;
  } else {
    settings.ViewMode = kProfileView;
    settings.ProfileStyle = index == 2 ? 1 : 0;
  }
}

void frmOptions::OK() {
  if (closed()) return;
  result_ = 1;
  unload();
}

void frmOptions::Cancel() {
  if (closed()) return;
  result_ = -1;
  settings.ViewMode = saved_.ViewMode;
  settings.ViewStyle = saved_.ViewStyle;
  settings.ProfileStyle = saved_.ProfileStyle;
  if (saved_.Item_shown != Item_shown) {
    Item_shown = saved_.Item_shown;
    VarShown = variableOf(Item_shown);
  }
  unload();
}

frmOptions::Legend frmOptions::EditLegend() {
  if (closed()) return Legend::Done;
  ModColor::frmColorKey editor(dialogs_);
  if (!editor.LoadColorKey()) return Legend::NotOpened;
  dialogs_.ShowModal(editor);
  if (editor.Result() <= 0) return Legend::Done;
  const uint32_t before = util::failuresReported();
  ModColor::SaveKEW();
  return util::failuresReported() == before ? Legend::Done : Legend::NotSaved;
}

int32_t OpenOptionsForm(Dialogs& dialogs) {
  frmOptions options(dialogs);
  options.Load();
  dialogs.ShowModal(options);
  return options.Result();
}

}  // namespace control
