#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "colorkey/frmAutoDiv.h"
#include "colorkey/frmColorKey.h"
#include "colorkey/frmColorRamp.h"
#include "colorkey/frmVarName.h"
#include "control/Dialogs.h"
#include "control/frmOptions.h"

namespace support {

// A user who knows beforehand what to do with every dialog: each that is shown plays the next
// action of its kind and then closes by its close box unless the action closed it. A dialog or a
// chooser that nobody planned for is a failure of the test.
class ScriptedDialogs : public control::Dialogs {
 public:
  template <class Form>
  using Actions = std::deque<std::function<void(Form&)>>;
  Actions<control::frmOptions> options;
  Actions<ModColor::frmColorKey> editors;
  Actions<ModColor::frmAutoDiv> divisions;
  Actions<ModColor::frmColorRamp> ramps;
  Actions<ModColor::frmVarName> choices;
  std::deque<std::optional<platform::Colour>> colours;
  std::deque<std::optional<std::string>> files;
  std::vector<platform::Colour> presets;  // of the colour choosers shown

  void ShowModal(control::frmOptions& dialog) override { play(options, dialog); }
  void ShowModal(ModColor::frmColorKey& dialog) override { play(editors, dialog); }
  void ShowModal(ModColor::frmAutoDiv& dialog) override { play(divisions, dialog); }
  void ShowModal(ModColor::frmColorRamp& dialog) override { play(ramps, dialog); }
  void ShowModal(ModColor::frmVarName& dialog) override { play(choices, dialog); }
  std::optional<platform::Colour> ChooseColor(platform::Colour preset) override {
    presets.push_back(preset);
    return next(colours);
  }
  std::optional<std::string> ChooseKewFile() override { return next(files); }

  // Whether everything planned was done.
  bool done() const {
    return options.empty() && editors.empty() && divisions.empty() && ramps.empty() &&
           choices.empty() && colours.empty() && files.empty();
  }

 private:
  template <class Form>
  static void play(Actions<Form>& actions, Form& dialog) {
    EXPECT_FALSE(dialog.closed());
    if (const auto action = next(actions)) action(dialog);
    if (!dialog.closed()) dialog.closeBox();
  }
  template <class Item>
  static Item next(std::deque<Item>& items) {
    if (items.empty()) {
      ADD_FAILURE() << "a dialog that nobody planned for";
      return Item{};
    }
    Item item = std::move(items.front());
    items.pop_front();
    return item;
  }
};

}  // namespace support
