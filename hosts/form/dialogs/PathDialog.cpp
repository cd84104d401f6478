#include "dialogs/PathDialog.h"

#include <commctrl.h>

#include <span>

#include "Dispatch.h"
#include "dialogs/fileDialogs.h"
#include "dialogs/clipboardText.h"
#include "ids.h"
#include "wholeFile.h"

namespace form {
namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);
constexpr std::size_t kLargestFile = 1 << 20;
enum Column { Number, Longitude, Latitude };

void setCell(HWND list, std::size_t row, Column column, const std::wstring& text) {
  std::wstring shown = text;
  ListView_SetItemText(list, static_cast<int>(row), column, shown.data());
}

}  // namespace

PathDialog::PathDialog(const Path& path, const std::wstring& problem, Accept accept)
    : Dialog(IDD_PATH), table_(path), accept_(std::move(accept)), said_(problem) {
  while (table_.size() < 2) table_.insertAfter(kNone);
}

HWND PathDialog::onInit() {
  const HWND list = item(IDC_POINTS);
  ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
  RECT area = {};
  GetClientRect(list, &area);
  const int bar = GetSystemMetrics(SM_CXVSCROLL), number = area.right / 5;
  const int width = (area.right - bar - number) / 2;
  const std::pair<const wchar_t*, int> columns[] = {
      {L"Point", number}, {L"Longitude", width}, {L"Latitude", width}};
  for (int k = 0; k < 3; ++k) {
    std::wstring title = columns[k].first;
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
    column.fmt = k == 0 ? LVCFMT_LEFT : LVCFMT_RIGHT;
    column.cx = columns[k].second;
    column.pszText = title.data();
    SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(k),
                 reinterpret_cast<LPARAM>(&column));
  }
  for (const int box : {IDC_LONGITUDE, IDC_LATITUDE}) {
    SetWindowSubclass(item(box), boxProcedure, 1, reinterpret_cast<DWORD_PTR>(this));
  }
  showRows();
  select(0);
  const HWND box = item(IDC_LONGITUDE);
  SendMessageW(box, EM_SETSEL, 0, -1);
  return box;
}

void PathDialog::onCommand(int id, int notification) {
  switch (id) {
    case IDC_LONGITUDE:
    case IDC_LATITUDE:
      if (notification != EN_CHANGE || filling_ || selected() == kNone) return;
      if (id == IDC_LONGITUDE) table_.setLongitude(selected(), textOf(id));
      if (id == IDC_LATITUDE) table_.setLatitude(selected(), textOf(id));
      said_.clear();
      showRow(selected());
      showState();
      return;
    case IDC_ADD: return add();
    case IDC_REMOVE: return remove();
    case IDC_UP: return move(true);
    case IDC_DOWN: return move(false);
    case IDC_PASTE: return paste();
    case IDC_LOAD: return load();
    case IDC_SAVE: return save();
    case IDOK: return accept();
    case IDCANCEL: return end(IDCANCEL);
    default: return;
  }
}

INT_PTR PathDialog::onNotify(const NMHDR& note) {
  if (note.idFrom != IDC_POINTS) return 0;
  if (note.code == static_cast<UINT>(LVN_ITEMCHANGED)) {
    if (!filling_) showSelected();
    return 0;
  }
  if (note.code != static_cast<UINT>(LVN_KEYDOWN)) return 0;
  const bool control = GetKeyState(VK_CONTROL) < 0;
  switch (reinterpret_cast<const NMLVKEYDOWN&>(note).wVKey) {
    case VK_DELETE: remove(); break;
    case VK_INSERT: add(); break;
    case VK_UP:
      if (control) move(true);
      return control;
    case VK_DOWN:
      if (control) move(false);
      return control;
    case 'V':
      if (control) paste();
      break;
    default: break;
  }
  return 0;
}

INT_PTR PathDialog::onMessage(UINT message, WPARAM, LPARAM) {
  if (message == WM_DESTROY) {
    for (const int box : {IDC_LONGITUDE, IDC_LATITUDE}) {
      RemoveWindowSubclass(item(box), boxProcedure, 1);
    }
  }
  return FALSE;
}

// Several points that are pasted into a box are meant for the list. One alone might be a number
// with a decimal comma, which must not take the place of all that is there.
LRESULT CALLBACK PathDialog::boxProcedure(HWND box, UINT message, WPARAM wide, LPARAM longer,
                                          UINT_PTR, DWORD_PTR self) {
  auto* const dialog = reinterpret_cast<PathDialog*>(self);
  try {
    if (message == WM_PASTE && readPath(clipboardText(dialog->window())).points.size() > 1) {
      dialog->paste();
      return 0;
    }
  } catch (const std::exception&) {  // no memory: nothing may be thrown through the system
    MessageBeep(MB_ICONERROR);
    return 0;
  }
  return DefSubclassProc(box, message, wide, longer);
}

void PathDialog::accept() {
  const std::optional<Path> path = table_.path();
  if (!path) {
    MessageBeep(MB_ICONWARNING);
    return;
  }
  const std::wstring refusal = accept_(*path);
  if (refusal.empty()) return end(IDOK);
  sayOnce(refusal);
}

void PathDialog::add() {
  const std::size_t row = table_.insertAfter(selected());
  said_.clear();
  showRows();
  select(row);
  SendMessageW(window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(item(IDC_LONGITUDE)), TRUE);
}

void PathDialog::remove() {
  const std::size_t row = selected();
  if (row == kNone) return;
  table_.remove(row);
  said_.clear();
  showRows();
  if (table_.size() > 0) select(row < table_.size() ? row : row - 1);
}

void PathDialog::move(bool up) {
  const std::size_t row = selected();
  if (row == kNone || (up ? row == 0 : row + 1 >= table_.size())) return;
  if (up) {
    table_.moveUp(row);
  } else {
    table_.moveDown(row);
  }
  said_.clear();
  showRows();
  select(up ? row - 1 : row + 1);
}

bool PathDialog::takeText(const std::wstring& text) {
  const ReadPath read = readPath(text);
  if (!read.problem.empty() || read.points.empty()) {
    sayOnce(!read.problem.empty() ? read.problem : L"There are no points in this text.");
    return false;
  }
  table_.assign(read.points);
  said_.clear();
  showRows();
  select(0);
  return true;
}

void PathDialog::paste() {
  const std::wstring text = clipboardText(window());
  if (text.empty()) {
    sayOnce(L"There is no text on the clipboard.");
  } else {
    takeText(text);
  }
}

void PathDialog::load() {
  const auto file = askOpenFile(window(), L"Load Path", kPathFiles);
  if (!file) return;
  try {
    std::string bytes = host::readWhole(*file, kLargestFile);
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.erase(0, 3);
    takeText(host::wide(bytes));
  } catch (const std::exception& error) {
    sayOnce(host::wide(error.what()) + L".");
  }
}

void PathDialog::save() {
  const std::optional<Path> path = table_.path();
  if (!path) return;
  const auto file = askSaveFile(window(), L"Save Path", kPathFiles, L"path.txt", L"txt");
  if (!file) return;
  try {
    const std::string text =
        "# longitude\tlatitude\r\n" + host::narrow(writePath(*path));
    host::writeWhole(*file, std::as_bytes(std::span(text)));
  } catch (const std::exception& error) {
    sayOnce(host::wide(error.what()) + L".");
  }
}

void PathDialog::showRows() {
  filling_ = true;
  const HWND list = item(IDC_POINTS);
  SendMessageW(list, WM_SETREDRAW, FALSE, 0);
  ListView_DeleteAllItems(list);
  for (std::size_t row = 0; row < table_.size(); ++row) {
    std::wstring number = std::to_wstring(row + 1);
    LVITEMW line = {};
    line.mask = LVIF_TEXT;
    line.iItem = static_cast<int>(row);
    line.pszText = number.data();
    SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&line));
    showRow(row);
  }
  SendMessageW(list, WM_SETREDRAW, TRUE, 0);
  filling_ = false;
  showSelected();
}

void PathDialog::showRow(std::size_t row) {
  const HWND list = item(IDC_POINTS);
  setCell(list, row, Longitude, table_.row(row).longitude);
  setCell(list, row, Latitude, table_.row(row).latitude);
}

void PathDialog::select(std::size_t row) {
  const HWND list = item(IDC_POINTS);
  ListView_SetItemState(list, static_cast<int>(row), LVIS_SELECTED | LVIS_FOCUSED,
                        LVIS_SELECTED | LVIS_FOCUSED);
  ListView_EnsureVisible(list, static_cast<int>(row), FALSE);
}

void PathDialog::showSelected() {
  const std::size_t row = selected();
  const bool any = row != kNone;
  filling_ = true;
  setText(IDC_LONGITUDE, any ? table_.row(row).longitude : L"");
  setText(IDC_LATITUDE, any ? table_.row(row).latitude : L"");
  filling_ = false;
  enable(IDC_LONGITUDE, any);
  enable(IDC_LATITUDE, any);
  enable(IDC_REMOVE, any);
  enable(IDC_UP, any && row > 0);
  enable(IDC_DOWN, any && row + 1 < table_.size());
  showState();
}

void PathDialog::showState() {
  const std::wstring problem = table_.problem();
  enable(IDOK, problem.empty());
  enable(IDC_SAVE, problem.empty());
  setText(IDC_PROBLEM, !said_.empty() ? said_ : !problem.empty() ? problem : table_.note());
}

void PathDialog::sayOnce(const std::wstring& problem) {
  said_ = problem;
  showState();
  MessageBeep(MB_ICONWARNING);
}

std::size_t PathDialog::selected() const {
  const int row = ListView_GetNextItem(item(IDC_POINTS), -1, LVNI_SELECTED);
  return row >= 0 && static_cast<std::size_t>(row) < table_.size() ? static_cast<std::size_t>(row)
                                                                    : kNone;
}

}  // namespace form
