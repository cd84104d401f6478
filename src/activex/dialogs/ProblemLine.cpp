#include "activex/dialogs/ProblemLine.h"

#include <string_view>

#include "activex/dialogs/DialogFace.h"
#include "util/lastError.h"

namespace activex {
namespace {

constexpr COLORREF kLineText = RGB(176, 0, 0);

bool highContrast() {
  HIGHCONTRASTW chosen = {};
  chosen.cbSize = sizeof chosen;
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof chosen, &chosen, 0) &&
         (chosen.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

// The last failure without the routine and the number that it is reported with.
std::string description() {
  constexpr std::string_view kBefore = ", KelvaneCtl, ";
  const std::string& text = util::LastError;
  const std::size_t found = text.find(kBefore);
  return found == std::string::npos ? text : text.substr(found + kBefore.size());
}

}  // namespace

void ProblemLine::say(const std::string& problem) const {
  if (textOf(line_) == problem) return;
  setText(line_, problem);
  if (!problem.empty()) NotifyWinEvent(EVENT_SYSTEM_ALERT, line_, OBJID_WINDOW, CHILDID_SELF);
}

void ProblemLine::sayFailure(const std::string& what) const {
  say(what + ": " + description() + ".");
  MessageBeep(MB_ICONWARNING);
}

std::optional<INT_PTR> ProblemLine::onMessage(UINT message, WPARAM wide, LPARAM longer) const {
  if (message != WM_CTLCOLORSTATIC || reinterpret_cast<HWND>(longer) != line_ || highContrast()) {
    return {};
  }
  const auto dc = reinterpret_cast<HDC>(wide);
  SetTextColor(dc, kLineText);
  SetBkColor(dc, GetSysColor(COLOR_BTNFACE));
  return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_BTNFACE));
}

}  // namespace activex
