#include "activex/dialogs/frmColorKeyFace.h"

#include <algorithm>

#include "activex/dialogs/dialogTemplate.h"
#include "activex/dialogs/ids.h"
#include "util/lastError.h"

namespace activex {
namespace {

constexpr int kLeastRows = 3;

RECT placeOf(HWND dialog, int control) {
  RECT place = {};
  GetWindowRect(GetDlgItem(dialog, control), &place);
  MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
  return place;
}

void place(HWND dialog, int control, const RECT& at) {
  SetWindowPos(GetDlgItem(dialog, control), nullptr, at.left, at.top, at.right - at.left,
               at.bottom - at.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

frmColorKeyFace::frmColorKeyFace(ModColor::frmColorKey& dialog)
    : DialogFace(dialog, "frmColorKey", IDD_FRMCOLORKEY),
      dialog_(dialog),
      rows_(dialog, fields_, *this) {}

HWND frmColorKeyFace::onInit() {
  fields_.setProblemLine(item(IDC_PROBLEM));
  rows_.setUp(window());
  measure();
  fitScreen();
  return nullptr;
}

void frmColorKeyFace::measure() {
  frame_ = placeOf(window(), IDC_ROWFRAME);
  scroll_ = placeOf(window(), IDC_VSCROLL1);
  add_ = placeOf(window(), IDC_CMDADD);
  problem_ = placeOf(window(), IDC_PROBLEM);
  const SIZE units = dialogUnits(IDD_FRMCOLORKEY);
  RECT area = {0, 0, units.cx, units.cy};
  MapDialogRect(window(), &area);
  clientHeight_ = area.bottom;
  const auto style = static_cast<DWORD>(GetWindowLongPtrW(window(), GWL_STYLE));
  const auto extended = static_cast<DWORD>(GetWindowLongPtrW(window(), GWL_EXSTYLE));
  AdjustWindowRectEx(&area, style, FALSE, extended);
  window_ = {area.right - area.left, area.bottom - area.top};
  const int lines = rows_.roomIn(scroll_.bottom - scroll_.top);
  leastHeight_ = window_.cy - (lines - kLeastRows) * rows_.pitch();
}

void frmColorKeyFace::fitScreen() {
  RECT area = {};
  if (SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0)) {
    window_.cx = std::min(window_.cx, area.right - area.left);
    window_.cy = std::min(window_.cy, area.bottom - area.top);
    leastHeight_ = std::min<int>(leastHeight_, window_.cy);
  }
  SetWindowPos(window(), nullptr, 0, 0, window_.cx, window_.cy,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  GetClientRect(window(), &area);
  layOut(area.bottom);
}

void frmColorKeyFace::layOut(int clientHeight) {
  const int more = clientHeight - clientHeight_;
  const auto taller = [more](RECT at) {
    at.bottom += more;
    return at;
  };
  place(window(), IDC_ROWFRAME, taller(frame_));
  place(window(), IDC_VSCROLL1, taller(scroll_));
  RECT problem = problem_;
  OffsetRect(&problem, 0, more);
  place(window(), IDC_PROBLEM, problem);
  fields_.giveUp();
  const int lines = rows_.roomIn(scroll_.bottom + more - scroll_.top);
  dialog_.ResetScrollbar(lines);
  rows_.makeRoom(lines);
  show();
}

void frmColorKeyFace::show() {
  rows_.show();
  RECT add = add_;
  OffsetRect(&add, 0, scroll_.top + rows_.shown() * rows_.pitch() - add_.top);
  place(window(), IDC_CMDADD, add);
  SCROLLINFO range = {};
  range.cbSize = sizeof range;
  range.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
  range.nMax = dialog_.VScroll1.Max + dialog_.VScroll1.LargeChange - 1;
  range.nPage = static_cast<UINT>(dialog_.VScroll1.LargeChange);
  range.nPos = dialog_.VScroll1.Value;
  SetScrollInfo(item(IDC_VSCROLL1), SB_CTL, &range, TRUE);
}

template <class Event>
void frmColorKeyFace::happens(Event&& event) {
  fields_.giveUp();
  fields_.show();
  fields_.line().say({});
  const uint32_t before = util::failuresReported();
  event();
  if (window() == nullptr) return;  // gone with its owner
  if (util::failuresReported() != before) fields_.line().sayFailure("Nothing was changed");
  show();
}

void frmColorKeyFace::onCommand(int control, int event) {
  const HWND from = item(control);
  fields_.onCommand(from, event);
  if (event != BN_CLICKED) return;
  if (const auto place = rows_.placeOf(from)) {
    onRowButton(*place);
  } else {
    onButton(control);
  }
}

void frmColorKeyFace::onButton(int control) {
  switch (control) {
    case IDOK:
      if (fields_.allRight()) happens([this] { dialog_.cmdOK(); });
      break;
    case IDCANCEL:
      dialog_.cmdCancel();
      break;
    case IDC_CMDADD:
      happens([this] { dialog_.cmdAdd(); });
      break;
    case IDC_CMDAUTODIV:
      happens([this] { dialog_.cmdAutoDiv(); });
      break;
    case IDC_CMDCOLORRAMP:
      happens([this] { dialog_.cmdColorRamp(); });
      break;
    case IDC_CMDIMPORT:
      happens([this] { dialog_.cmdImport(); });
      break;
    default:
      break;
  }
}

void frmColorKeyFace::onRowButton(KeyRows::Place place) {
  const int32_t row = rows_.rowAt(place.line);
  if (place.part == ROW_LBLCOLOR) happens([&] { dialog_.lblColor_Click(row); });
  if (place.part == ROW_CMDDELETE) happens([&] { dialog_.cmdDelete(row); });
}

std::optional<INT_PTR> frmColorKeyFace::onMessage(UINT message, WPARAM wide, LPARAM longer) {
  switch (message) {
    case WM_SIZE:
      if (wide != SIZE_MINIMIZED) layOut(HIWORD(longer));
      return TRUE;
    case WM_GETMINMAXINFO:
      limitSize(*reinterpret_cast<MINMAXINFO*>(longer));
      return TRUE;
    case WM_VSCROLL:
      onScroll(LOWORD(wide), HIWORD(wide));
      return TRUE;
    case WM_MOUSEWHEEL:
      onWheel(GET_WHEEL_DELTA_WPARAM(wide));
      return TRUE;
    case WM_DRAWITEM: {
      const auto& drawn = *reinterpret_cast<const DRAWITEMSTRUCT*>(longer);
      if (const auto place = rows_.placeOf(drawn.hwndItem)) rows_.draw(drawn, *place);
      return TRUE;
    }
    default:
      return fields_.onMessage(message, wide, longer);
  }
}

void frmColorKeyFace::limitSize(MINMAXINFO& limits) const {
  if (window_.cx == 0) return;  // not measured yet
  limits.ptMinTrackSize = {window_.cx, leastHeight_};
  limits.ptMaxTrackSize.x = window_.cx;
}

void frmColorKeyFace::onScroll(int request, int position) {
  const auto& bar = dialog_.VScroll1;
  switch (request) {
    case SB_LINEUP:
      return scrollTo(bar.Value - 1);
    case SB_LINEDOWN:
      return scrollTo(bar.Value + 1);
    case SB_PAGEUP:
      return scrollTo(bar.Value - bar.LargeChange);
    case SB_PAGEDOWN:
      return scrollTo(bar.Value + bar.LargeChange);
    case SB_TOP:
      return scrollTo(0);
    case SB_BOTTOM:
      return scrollTo(bar.Max);
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return scrollTo(position);
    default:
      break;
  }
}

void frmColorKeyFace::onWheel(int delta) {
  UINT lines = 3;
  SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  const int page = dialog_.VScroll1.LargeChange;
  const int rows = lines == WHEEL_PAGESCROLL ? page : std::min(static_cast<int>(lines), page);
  // Fine wheels turn by less than a notch at a time.
  wheel_ += delta * rows;
  const int turned = wheel_ / WHEEL_DELTA;
  wheel_ -= turned * WHEEL_DELTA;
  if (turned != 0) scrollTo(dialog_.VScroll1.Value - turned);
}

void frmColorKeyFace::scrollTo(int32_t row) {
  const int16_t before = dialog_.VScroll1.Value;
  const std::optional<KeyRows::Place> focused = rows_.placeOf(GetFocus());
  const auto wanted = static_cast<int16_t>(std::clamp<int32_t>(row, 0, dialog_.VScroll1.Max));
  if (wanted == before) return;
  fields_.giveUp();
  dialog_.VScroll1.Value = wanted;
  show();
  if (!focused) return;
  const int line = focused->line + before - dialog_.VScroll1.Value;
  rows_.focus({std::clamp(line, 0, rows_.shown() - 1), focused->part});
}

void frmColorKeyFace::goTo(int32_t row, int part) {
  const int32_t wanted = std::clamp(row, 0, static_cast<int32_t>(dialog_.rows.size()) - 1);
  const auto& bar = dialog_.VScroll1;
  if (wanted < bar.Value) scrollTo(wanted);
  if (wanted >= bar.Value + bar.LargeChange) scrollTo(wanted - bar.LargeChange + 1);
  rows_.focus({wanted - bar.Value, part});
}

bool frmColorKeyFace::takesKey(HWND control, WPARAM key) {
  const std::optional<KeyRows::Place> place = rows_.placeOf(control);
  if (!place) return false;
  const auto& bar = dialog_.VScroll1;
  switch (key) {
    case VK_UP:
    case VK_DOWN:
    case VK_PRIOR:
    case VK_NEXT:
      return true;
    case VK_HOME:
    case VK_END:
      return keyIsDown(VK_CONTROL);
    case VK_TAB:
      if (keyIsDown(VK_CONTROL)) return false;
      if (keyIsDown(VK_SHIFT)) {
        return place->line == 0 && place->part == ROW_FLDLOWRANGE && bar.Value > 0;
      }
      return place->line == rows_.shown() - 1 && place->part == ROW_CMDDELETE &&
             bar.Value < bar.Max;
    case VK_RETURN:
      // The row's own buttons are pressed like any other; in a field, Enter is OK.
      return place->part == ROW_LBLCOLOR || place->part == ROW_CMDDELETE;
    default:
      return false;
  }
}

void frmColorKeyFace::onKey(HWND control, WPARAM key) {
  const std::optional<KeyRows::Place> place = rows_.placeOf(control);
  if (!place) return;
  const int32_t row = rows_.rowAt(place->line);
  const int32_t page = dialog_.VScroll1.LargeChange;
  switch (key) {
    case VK_UP:
      return goTo(row - 1, place->part);
    case VK_DOWN:
      return goTo(row + 1, place->part);
    case VK_PRIOR:
      scrollTo(dialog_.VScroll1.Value - page);
      return goTo(row - page, place->part);
    case VK_NEXT:
      scrollTo(dialog_.VScroll1.Value + page);
      return goTo(row + page, place->part);
    case VK_HOME:
      return goTo(0, place->part);
    case VK_END:
      return goTo(static_cast<int32_t>(dialog_.rows.size()) - 1, place->part);
    case VK_TAB:
      return keyIsDown(VK_SHIFT) ? goTo(row - 1, ROW_CMDDELETE) : goTo(row + 1, ROW_FLDLOWRANGE);
    case VK_RETURN:
      PostMessageW(control, BM_CLICK, 0, 0);
      break;
    default:
      break;
  }
}

}  // namespace activex
