#include "window/StatusLine.h"

#include <commctrl.h>

#include <algorithm>

#include "ids.h"

namespace form {

StatusLine::StatusLine(HWND window, const Metrics& metrics) : metrics_(metrics) {
  line_ = CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0,
                          0, 0, window, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(IDC_STATUS)),
                          GetModuleHandleW(nullptr), nullptr);
  SendMessageW(line_, WM_SETFONT, reinterpret_cast<WPARAM>(metrics.font()), FALSE);
}

int StatusLine::layOut(int width) {
  constexpr int kDataSet = 110, kItem = 70, kStep = 72;  // units
  const int step = std::max(width - metrics_.across(kStep), 0);
  const int item = std::max(step - metrics_.across(kItem), 0);
  const int dataSet = std::max(item - metrics_.across(kDataSet), 0);
  const int ends[4] = {dataSet, item, step, -1};
  SendMessageW(line_, WM_SIZE, 0, 0);
  SendMessageW(line_, SB_SETPARTS, 4, reinterpret_cast<LPARAM>(ends));
  RECT place = {};
  GetWindowRect(line_, &place);
  return place.bottom - place.top;
}

void StatusLine::show(const std::wstring& state, const std::wstring& dataSet,
                      const std::wstring& item, const std::wstring& step) {
  setPart(0, state);
  setPart(1, dataSet);
  setPart(2, item);
  setPart(3, step);
}

void StatusLine::setPart(int part, const std::wstring& text) {
  if (shown_[part] == text) return;
  shown_[part] = text;
  SendMessageW(line_, SB_SETTEXTW, static_cast<WPARAM>(part),
               reinterpret_cast<LPARAM>(text.c_str()));
}

}  // namespace form
