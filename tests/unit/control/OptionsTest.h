#pragma once

#include "render/settings.h"
#include "section/drawItems.h"
#include "support/ScriptedDialogs.h"
#include "unit/control/ControlTest.h"

// A control whose dialogs a scripted user answers.
class OptionsTest : public ControlTest {
 protected:
  ~OptionsTest() override { EXPECT_TRUE(dialogs.done()); }

  using Action = std::function<void(control::frmOptions&)>;
  void showOptions(const Action& action) {
    dialogs.options.push_back(action);
    shown.ShowOptions();
  }
  std::size_t drawings() const {
    return boxes.Picture1.of(support::Operation::Kind::Refresh).size();
  }

  support::ScriptedDialogs dialogs;
  control::KelvaneCtl shown{boxes.pictures(), desktop, dialogs};
};
