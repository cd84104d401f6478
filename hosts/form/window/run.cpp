#include "window/run.h"

#include <commctrl.h>

namespace form {

int run(MainWindow& window, const std::wstring& name) {
  if (!name.empty()) window.open(name);
  MSG message = {};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (window.translate(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return static_cast<int>(message.wParam);
}

}  // namespace form
