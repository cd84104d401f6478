#include "platform/centerForm.h"

#include "util/rounding.h"

namespace platform {

void CenterForm(Form& form, ScreenSize screen) {
  if (form.WindowState() != WindowState::Normal) return;
  const int32_t left = util::roundToLong(screen.width - form.Width()) / 2;
  const int32_t top = util::roundToLong(screen.height - form.Height()) / 2;
  form.MoveTo(left, top);
}

}  // namespace platform
