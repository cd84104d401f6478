#include <stdexcept>

#include "dialogs/Dialog.h"
#include "dialogs/PathDialog.h"
#include "dialogs/fileDialogs.h"
#include "dialogs/smallDialogs.h"
#include "ids.h"
#include "model/address.h"
#include "pictures/pictures.h"
#include "pictures/printing.h"
#include "window/MainWindow.h"
#include "window/MainWindowModal.h"

namespace form {
namespace {

// A file's whole name, wherever the program is later.
std::wstring wholeName(const std::wstring& name) {
  if (isAddress(name)) return name;
  std::wstring whole(GetFullPathNameW(name.c_str(), 0, nullptr, nullptr), L'\0');
  const DWORD length =
      GetFullPathNameW(name.c_str(), static_cast<DWORD>(whole.size()), whole.data(), nullptr);
  whole.resize(length);
  return length > 0 ? whole : name;
}

}  // namespace

void MainWindow::onCommand(int id, int notification) {
  switch (id) {
    case IDC_ITEM:
      // Going through the open list chooses nothing yet.
      if (notification == CBN_SELENDOK ||
          (notification == CBN_SELCHANGE && !bar_->itemListIsOpen())) {
        chooseItem();
      } else if (notification == CBN_SELENDCANCEL) {
        refresh();
      }
      return;
    case IDC_STEP:
      if (notification == EN_KILLFOCUS) refresh();
      return;
    case IDC_SPEED:
      if (notification == CBN_SELCHANGE && playing_) play();
      return;
    case IDC_MESSAGE:
      return;
    case ID_EXIT:
      PostMessageW(window_, WM_CLOSE, 0, 0);
      return;
    default:
      if (modal_ == 0 && !closing_ && notification <= 1) perform(id);
  }
}

void MainWindow::perform(int id) {
  if (id == ID_ABOUT) {
    const Modal modal(*this);
    return showAbout(window_);
  }
  if (id == IDOK) {
    if (GetFocus() == bar_->stepBox()) goToTyped();
    return;
  }
  if (id == IDCANCEL) {
    stop();
    say(L"");
    bar_->showStep(session_ && session_->isOpen() ? session_->step() : 0);
    return refresh();
  }
  if (!ready()) return;
  note(L"");
  switch (id) {
    case ID_OPEN: return openFile();
    case ID_OPEN_ADDRESS: return openAddress();
    case ID_SAVE_PICTURE: return savePicture();
    case ID_PRINT: return print();
    case ID_COPY: return copy();
    case ID_PATH: return askPath();
    case ID_VIEW_SECTION:
    case ID_VIEW_PROFILE:
      report(session_->setProfile(id == ID_VIEW_PROFILE));
      return;
    case ID_OPTIONS:
      if (session_->drawable()) report(session_->showOptions());
      return;
    case ID_USE_KEY: return toggleKey();
    case ID_LOAD_KEY: return loadKey();
    case ID_MAKE_KEY:
      report(session_->makeKey());
      return;
    case ID_DRAW:
      report(session_->draw());
      return;
    case ID_PLAY: return playing_ ? stop() : play();
    case ID_PREVIOUS:
    case ID_NEXT:
    case ID_FIRST:
    case ID_LAST: return step(id);
    default:
      if (id >= ID_FIRST_RECENT && id < ID_FIRST_RECENT + static_cast<int>(RecentList::kMost)) {
        openRecent(static_cast<std::size_t>(id - ID_FIRST_RECENT));
      }
  }
}

void MainWindow::openFile() {
  std::optional<std::wstring> name;
  {
    const Modal modal(*this);
    name = askOpenFile(window_, L"Open", kDataSets);
  }
  if (name) open(*name);
}

void MainWindow::openAddress() {
  std::optional<std::wstring> name;
  {
    const Modal modal(*this);
    name = askAddress(window_, address_);
  }
  if (!name) return;
  address_ = withoutCredentials(*name);
  open(*name);
}

void MainWindow::openRecent(std::size_t k) {
  if (k < recent_.entries().size()) open(std::wstring(recent_.entries()[k].name));
}

void MainWindow::open(const std::wstring& name) {
  if (!ready()) return;
  stop();
  note(L"");
  const std::wstring whole = wholeName(name);
  Outcome outcome;
  {
    const Still still(*this);
    outcome = session_->open(whole);
  }
  if (!outcome.done()) {
    refresh();
    return say(L"\x201C" + shortName(whole) + L"\x201D could not be opened.\n" + outcome.problem);
  }
  say(L"");
  remember(whole, {});
  refresh();
  Path path = recent_.pathOf(whole);
  if (path.empty()) path = usedPath_;
  if (closing_) return;
  const std::wstring problem = path.empty() ? L"" : usePath(path);
  if (path.empty() || !problem.empty()) askPath(problem);
}

// What the program's other windows have remembered in the meantime stays.
void MainWindow::remember(const std::wstring& name, const Path& path) {
  recent_ = settings_.recent();
  recent_.add(name, path);
  settings_.setRecent(recent_);
  fillRecentMenu();
}

void MainWindow::askPath(const std::wstring& why) {
  if (!ready() || !session_->isOpen()) return;
  stop();
  Path preset = session_->path();
  if (preset.empty()) preset = recent_.pathOf(session_->name());
  if (preset.empty()) preset = settings_.lastPath();
  {
    const Modal modal(*this);
    PathDialog(preset, why, [this](const Path& path) { return usePath(path); }).ask(window_);
  }
  if (!session_->drawable()) {
    say(L"There is no path to draw along yet. Choose Path to set one.");
  }
}

// Runs from within the path's dialog, too.
std::wstring MainWindow::usePath(const Path& path) {
  const Outcome set = session_->setPath(path);
  if (!set.done()) return L"There is no section along this path. " + set.problem;
  usedPath_ = path;
  remember(session_->name(), path);
  settings_.setLastPath(path);
  report(session_->draw());
  return {};
}

void MainWindow::chooseItem() {
  const int item = bar_->chosenItem();
  if (!ready() || item < 1 || item == session_->item()) return refresh();
  report(session_->setItem(item));
}

void MainWindow::goToTyped() {
  if (!ready() || !session_->drawable()) return;
  stop();
  const std::wstring text = bar_->typedStep();
  // The box takes digits only, but what is pasted may be anything.
  const bool number = !text.empty() && text.size() <= 9 &&
                      text.find_first_not_of(L"0123456789") == std::wstring::npos;
  const int step = number ? std::stoi(text) : 0;
  if (step < 1 || (session_->steps() > 0 && step > session_->steps())) {
    const std::wstring last = session_->steps() > 0 ? std::to_wstring(session_->steps()) : L"";
    say(last.empty() ? L"Time steps count from 1." : L"The time steps go from 1 to " + last + L".");
    SendMessageW(bar_->stepBox(), EM_SETSEL, 0, -1);
    return;
  }
  report(session_->goTo(step));
  bar_->showStep(session_->step());
  SendMessageW(bar_->stepBox(), EM_SETSEL, 0, -1);
}

void MainWindow::step(int id) {
  if (!session_->drawable()) return;
  stop();
  const int last = session_->steps();
  switch (id) {
    case ID_NEXT:
      report(session_->next());
      return;
    case ID_PREVIOUS:
      if (session_->step() > 1) {
        report(session_->goTo(session_->step() - 1));
      } else if (last > 0) {
        report(session_->goTo(last));
      }
      return;
    case ID_FIRST:
      report(session_->goTo(1));
      return;
    default:
      if (last > 0) report(session_->goTo(last));
  }
}

void MainWindow::play() {
  if (!session_->drawable()) return;
  playing_ = true;
  const int pause = Bar::pauses()[static_cast<std::size_t>(bar_->chosenSpeed())];
  SetTimer(window_, kPlayTimer, static_cast<UINT>(pause), nullptr);
  refresh();
}

void MainWindow::stop() {
  if (!playing_) return;
  playing_ = false;
  KillTimer(window_, kPlayTimer);
  refresh();
}

// A dialog holds the playing up, a failure ends it.
void MainWindow::playNext() {
  if (playing_ && ready()) report(session_->next());
}

void MainWindow::toggleKey() { report(session_->setUsesKey(!session_->usesKey())); }

void MainWindow::loadKey() {
  std::optional<std::wstring> file;
  {
    const Modal modal(*this);
    file = askOpenFile(window_, L"Load Color Key", kKeyFiles);
  }
  if (file) report(session_->loadKey(*file));
}

template <class Action>
void MainWindow::withPicture(const wchar_t* failure, const Action& action) {
  if (!session_->drawable()) return;
  stop();
  try {
    note(action());
    say(L"");
  } catch (const std::exception& error) {
    say(failure + std::wstring(L"\n") + host::wide(error.what()) + L".");
  }
}

void MainWindow::copy() {
  withPicture(L"The picture could not be copied.", [&] {
    copyPicture(window_, holder_->object());
    return L"The picture is on the clipboard.";
  });
}

void MainWindow::savePicture() {
  withPicture(L"The picture could not be saved.", [&]() -> std::wstring {
    std::wstring preset = shortName(session_->name());
    preset = preset.substr(0, preset.rfind(L'.')) + L".png";
    if (isAddress(session_->name())) preset = L"section.png";
    std::optional<PictureSize> size;
    std::optional<std::wstring> file;
    {
      const Modal modal(*this);
      size = askPictureSize(window_, viewSize());
      if (size) file = askSaveFile(window_, L"Save Picture", kPictures, preset, L"png");
    }
    if (!file) return {};
    const Still still(*this);
    savePictureAt(*size, *file);
    return L"The picture is saved.";
  });
}

void MainWindow::print() {
  withPicture(L"The picture could not be printed.", [&]() -> std::wstring {
    const Modal modal(*this);
    const bool printed = printPicture(window_, title(), holder_->object(), viewSize());
    return printed ? L"The picture is on its way to the printer." : L"";
  });
}

}  // namespace form
