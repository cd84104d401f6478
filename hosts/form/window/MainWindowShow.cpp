#include "ids.h"
#include "window/MainWindow.h"

namespace form {
namespace {

constexpr int kFileMenu = 0, kRecentMenu = 2;

}  // namespace

bool MainWindow::report(const Outcome& outcome) {
  if (!outcome.done()) stop();
  say(outcome.problem);
  refresh();
  return outcome.done();
}

void MainWindow::say(const std::wstring& problem) {
  if (!strip_->say(problem)) return;
  layOut();
  refresh();
}

void MainWindow::note(const std::wstring& text) {
  note_ = text;
  refresh();
}

std::wstring MainWindow::title() const {
  return session_ && session_->isOpen() ? shortName(session_->name()) + L" - Kelvane" : L"Kelvane";
}

void MainWindow::refresh() {
  if (window_ == nullptr || !status_) return;
  BarState state;
  state.ready = session_ && modal_ == 0;
  state.playing = playing_;
  std::wstring name, item, step;
  if (session_ && session_->isOpen()) {
    state.items = session_->items();
    state.item = session_->item();
    state.step = session_->step();
    state.steps = session_->steps();
    state.open = true;
    state.drawable = session_->drawable();
    name = shortName(session_->name());
    if (state.item >= 1 && state.item <= static_cast<int>(state.items.size())) {
      item = state.items[static_cast<std::size_t>(state.item) - 1];
    }
    step = L"Step " + std::to_wstring(state.step);
    if (state.steps > 0) step += L" of " + std::to_wstring(state.steps);
  }
  bar_->show(state);
  const wchar_t* const doing = playing_ ? L"Playing" : !strip_->text().empty() ? L"" : L"Ready";
  status_->show(note_.empty() ? doing : note_, name, item, step);
  wchar_t shown[512] = {};
  GetWindowTextW(window_, shown, 512);
  if (title() != shown) SetWindowTextW(window_, title().c_str());
  // A button that has just gone grey must not keep the keyboard.
  const HWND focus = GetFocus();
  if (focus != nullptr && IsChild(window_, focus) && !IsWindowEnabled(focus) && modal_ == 0) {
    SetFocus(stage_->window());
  }
}

void MainWindow::updateMenu(HMENU menu) {
  const bool can = ready(), isOpen = can && session_->isOpen(),
             drawable = can && session_->drawable();
  const auto enable = [menu](int id, bool enabled) {
    EnableMenuItem(menu, static_cast<UINT>(id),
                   MF_BYCOMMAND | static_cast<UINT>(enabled ? MF_ENABLED : MF_GRAYED));
  };
  const auto check = [menu](int id, bool checked) {
    CheckMenuItem(menu, static_cast<UINT>(id),
                  MF_BYCOMMAND | static_cast<UINT>(checked ? MF_CHECKED : MF_UNCHECKED));
  };
  for (const int id : {ID_OPEN, ID_OPEN_ADDRESS}) enable(id, can);
  for (const int id : {ID_PATH, ID_LOAD_KEY}) enable(id, isOpen);
  for (const int id : {ID_SAVE_PICTURE, ID_PRINT, ID_COPY, ID_OPTIONS, ID_USE_KEY, ID_MAKE_KEY,
                       ID_DRAW, ID_PLAY, ID_PREVIOUS, ID_NEXT, ID_FIRST, ID_VIEW_SECTION,
                       ID_VIEW_PROFILE}) {
    enable(id, drawable);
  }
  enable(ID_LAST, drawable && session_->steps() > 0);
  if (!can) return;
  const bool profile = session_->profile();
  CheckMenuRadioItem(menu, ID_VIEW_SECTION, ID_VIEW_PROFILE,
                     profile ? ID_VIEW_PROFILE : ID_VIEW_SECTION, MF_BYCOMMAND);
  check(ID_USE_KEY, session_->usesKey());
  const wchar_t* const play = playing_ ? L"&Pause\tSpace" : L"&Play\tSpace";
  if (GetMenuState(menu, ID_PLAY, MF_BYCOMMAND) != static_cast<UINT>(-1)) {
    ModifyMenuW(menu, ID_PLAY,
                MF_BYCOMMAND | MF_STRING | static_cast<UINT>(drawable ? MF_ENABLED : MF_GRAYED),
                ID_PLAY, play);
  }
}

void MainWindow::fillRecentMenu() const {
  const HMENU menu = GetSubMenu(GetSubMenu(GetMenu(window_), kFileMenu), kRecentMenu);
  while (GetMenuItemCount(menu) > 0) DeleteMenu(menu, 0, MF_BYPOSITION);
  const auto& entries = recent_.entries();
  for (std::size_t k = 0; k < entries.size(); ++k) {
    AppendMenuW(menu, MF_STRING, ID_FIRST_RECENT + k, menuText(k, entries[k].name).c_str());
  }
  if (entries.empty()) AppendMenuW(menu, MF_STRING | MF_GRAYED, ID_NO_RECENT, L"(none)");
}

}  // namespace form
