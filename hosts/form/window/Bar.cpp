#include "window/Bar.h"

#include <commctrl.h>

#include <algorithm>

#include "dialogs/Dialog.h"
#include "ids.h"
#include "window/glyphs.h"

namespace form {
namespace {

// Units of the font.
constexpr int kMargin = 5, kGap = 3, kGroupGap = 10, kLineHeight = 14, kTextHeight = 9;
constexpr int kLeastWidth = 220;
constexpr int kGlyphWidth = 18, kItemWidth = 90, kStepWidth = 26, kCountWidth = 32,
              kSpeedWidth = 68, kListHeight = 120;

struct Speed {
  int pause;
  const wchar_t* name;
};
constexpr Speed kSpeeds[] = {{2000, L"1 in 2 seconds"}, {1000, L"1 a second"},
                             {500, L"2 a second"}, {200, L"5 a second"},
                             {100, L"10 a second"}, {10, L"Fastest"}};

constexpr Glyph kGlyphs[] = {Glyph::First, Glyph::Previous, Glyph::Play,
                             Glyph::Pause, Glyph::Next,     Glyph::Last};
enum { GlyphFirst, GlyphPrevious, GlyphPlay, GlyphPause, GlyphNext, GlyphLast };

void enable(HWND control, bool enabled) {
  if ((IsWindowEnabled(control) != FALSE) != enabled) EnableWindow(control, enabled);
}

void setText(HWND control, const std::wstring& text) {
  if (windowText(control) != text) SetWindowTextW(control, text.c_str());
}

}  // namespace

const std::vector<int>& Bar::pauses() {
  static const std::vector<int> all = [] {
    std::vector<int> pauses;
    for (const Speed& speed : kSpeeds) pauses.push_back(speed.pause);
    return pauses;
  }();
  return all;
}

Bar::Bar(HWND window, const Metrics& metrics) : window_(window), metrics_(metrics) {
  tips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                          WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0, 0, 0, 0, window, nullptr,
                          GetModuleHandleW(nullptr), nullptr);
  const int glyph = metrics.down(kLineHeight) * 5 / 8;
  for (const Glyph kind : kGlyphs) icons_.push_back(makeGlyph(kind, glyph));

  groups_.emplace_back();
  addButton(L"&Open...", ID_OPEN);
  groups_.emplace_back();
  add(L"Static", L"&Item:", SS_LEFTNOWORDWRAP, IDC_ITEM_LABEL, 0, kTextHeight, 0);
  item_ = add(L"ComboBox", L"", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, IDC_ITEM, kItemWidth,
              kListHeight, kGap);
  groups_.emplace_back();
  addGlyph(L"First step (Home)", ID_FIRST, GlyphFirst);
  addGlyph(L"Previous step (Left)", ID_PREVIOUS, GlyphPrevious);
  addGlyph(L"Play or pause (Space)", ID_PLAY, GlyphPlay);
  play_ = groups_.back().back().window;
  addGlyph(L"Next step (Right)", ID_NEXT, GlyphNext);
  addGlyph(L"Last step (End)", ID_LAST, GlyphLast);
  groups_.emplace_back();
  add(L"Static", L"&Step:", SS_LEFTNOWORDWRAP, IDC_STEP_LABEL, 0, kTextHeight, 0);
  step_ = add(L"Edit", L"", ES_NUMBER | ES_RIGHT | ES_AUTOHSCROLL | WS_TABSTOP, IDC_STEP,
              kStepWidth, kLineHeight - 2, kGap);
  SendMessageW(step_, EM_SETLIMITTEXT, 9, 0);
  count_ = add(L"Static", L"", SS_LEFTNOWORDWRAP, IDC_STEP_COUNT, kCountWidth, kTextHeight, kGap);
  groups_.emplace_back();
  add(L"Static", L"Spee&d:", SS_LEFTNOWORDWRAP, IDC_SPEED_LABEL, 0, kTextHeight, 0);
  speed_ = add(L"ComboBox", L"", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, IDC_SPEED,
               kSpeedWidth, kListHeight, kGap);
  for (const Speed& speed : kSpeeds) {
    SendMessageW(speed_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(speed.name));
  }
  setSpeed(kUsualSpeed);
  groups_.emplace_back();
  addButton(L"&Path...", ID_PATH);
  addButton(L"Optio&ns...", ID_OPTIONS);

  addTip(item_, L"What is drawn");
  addTip(step_, L"Time step: type a number and press Enter");
  addTip(speed_, L"Steps played a second");
}

Bar::~Bar() {
  for (const HICON icon : icons_) {
    if (icon != nullptr) DestroyIcon(icon);
  }
}

// Width and height in units; width 0 is that of the text.
HWND Bar::add(const wchar_t* kind, const wchar_t* text, DWORD style, int id, int width, int height,
              int lead) {
  // Letters side by side may be a pixel wider than they measure.
  const int slack = metrics_.across(1);
  const DWORD extended = std::wstring(kind) == L"Edit" ? WS_EX_CLIENTEDGE : 0;
  const HWND control =
      CreateWindowExW(extended, kind, text, style | WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, 0, 0,
                      0, 0, window_, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)),
                      GetModuleHandleW(nullptr), nullptr);
  SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(metrics_.font()), FALSE);
  const int pixels =
      width > 0 ? metrics_.across(width) : static_cast<int>(metrics_.extentOf(text).cx) + slack;
  groups_.back().push_back({control, pixels, metrics_.down(height), metrics_.across(lead)});
  return control;
}

void Bar::addButton(const wchar_t* text, int id) {
  constexpr int kPadding = 8;
  const int lead = groups_.back().empty() ? 0 : kGap;
  add(L"Button", text, BS_PUSHBUTTON | WS_TABSTOP, id, 0, kLineHeight, lead);
  groups_.back().back().width += 2 * metrics_.across(kPadding);
}

void Bar::addGlyph(const wchar_t* name, int id, int glyph) {
  const int lead = groups_.back().empty() ? 0 : 1;
  const HWND button = add(L"Button", name, BS_PUSHBUTTON | BS_ICON | WS_TABSTOP, id, kGlyphWidth,
                          kLineHeight, lead);
  SendMessageW(button, BM_SETIMAGE, IMAGE_ICON,
               reinterpret_cast<LPARAM>(icons_[static_cast<std::size_t>(glyph)]));
  addTip(button, name);
}

void Bar::addTip(HWND control, const wchar_t* text) {
  std::wstring shown = text;
  TTTOOLINFOW tip = {};
  tip.cbSize = TTTOOLINFOW_V1_SIZE;
  tip.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tip.hwnd = window_;
  tip.uId = reinterpret_cast<UINT_PTR>(control);
  tip.lpszText = shown.data();
  SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tip));
}

int Bar::widthOf(const Group& group) const {
  int width = 0;
  for (const Part& part : group) width += part.lead + part.width;
  return width;
}

int Bar::leastWidth() const {
  int width = metrics_.across(kLeastWidth);
  for (const Group& group : groups_) width = std::max(width, widthOf(group));
  return width + 2 * metrics_.across(kMargin);
}

int Bar::layOut(int width) {
  const int margin = metrics_.across(kMargin), line = metrics_.down(kLineHeight);
  int left = margin, top = metrics_.down(kGap);
  HDWP moves = BeginDeferWindowPos(20);
  for (const Group& group : groups_) {
    if (left > margin && left + widthOf(group) + margin > width) {
      left = margin;
      top += line + metrics_.down(kGap);
    }
    for (const Part& part : group) {
      left += part.lead;
      // A combo box's height is that of its open list, and its own comes of its font.
      RECT own = {0, 0, 0, part.height};
      if (part.window == item_ || part.window == speed_) GetWindowRect(part.window, &own);
      const int down = std::max((line - static_cast<int>(own.bottom - own.top)) / 2, 0);
      moves = DeferWindowPos(moves, part.window, nullptr, left, top + down, part.width,
                             part.height, SWP_NOZORDER | SWP_NOACTIVATE);
      left += part.width;
    }
    left += metrics_.across(kGroupGap);
  }
  EndDeferWindowPos(moves);
  return top + line + metrics_.down(kGap);
}

void Bar::show(const BarState& state) {
  if (items_ != state.items) {
    items_ = state.items;
    SendMessageW(item_, CB_RESETCONTENT, 0, 0);
    for (const std::wstring& name : items_) {
      SendMessageW(item_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    }
  }
  if (chosenItem() != state.item) {
    SendMessageW(item_, CB_SETCURSEL, static_cast<WPARAM>(state.item - 1), 0);
  }
  if (playing_ != state.playing) {
    playing_ = state.playing;
    const auto icon = static_cast<std::size_t>(playing_ ? GlyphPause : GlyphPlay);
    SendMessageW(play_, BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icons_[icon]));
  }
  if (GetFocus() != step_ || playing_) showStep(state.open ? state.step : 0);
  setText(count_, state.open && state.steps > 0 ? L"of " + std::to_wstring(state.steps) : L"");
  enable(item_, state.ready && state.open);
  enable(step_, state.ready && state.drawable);
  for (const int id : {ID_FIRST, ID_PREVIOUS, ID_PLAY, ID_NEXT}) {
    enable(GetDlgItem(window_, id), state.ready && state.drawable);
  }
  enable(GetDlgItem(window_, ID_LAST), state.ready && state.drawable && state.steps > 0);
  enable(speed_, state.ready);
  enable(GetDlgItem(window_, ID_OPEN), state.ready);
  enable(GetDlgItem(window_, ID_PATH), state.ready && state.open);
  enable(GetDlgItem(window_, ID_OPTIONS), state.ready && state.drawable);
}

int Bar::chosenItem() const {
  return static_cast<int>(SendMessageW(item_, CB_GETCURSEL, 0, 0)) + 1;
}

bool Bar::itemListIsOpen() const { return SendMessageW(item_, CB_GETDROPPEDSTATE, 0, 0) != 0; }

int Bar::chosenSpeed() const {
  const auto chosen = static_cast<int>(SendMessageW(speed_, CB_GETCURSEL, 0, 0));
  return std::clamp(chosen, 0, static_cast<int>(std::size(kSpeeds)) - 1);
}

void Bar::setSpeed(int index) {
  const int last = static_cast<int>(std::size(kSpeeds)) - 1;
  SendMessageW(speed_, CB_SETCURSEL, static_cast<WPARAM>(std::clamp(index, 0, last)), 0);
}

std::wstring Bar::typedStep() const { return windowText(step_); }
void Bar::showStep(int step) { setText(step_, step > 0 ? std::to_wstring(step) : L""); }

}  // namespace form
