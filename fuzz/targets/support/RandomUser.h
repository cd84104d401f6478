#pragma once

#include <optional>
#include <string>
#include <vector>

#include "colorkey/frmAutoDiv.h"
#include "colorkey/frmColorKey.h"
#include "colorkey/frmColorRamp.h"
#include "colorkey/frmVarName.h"
#include "control/Dialogs.h"
#include "control/frmOptions.h"
#include "targets/support/Input.h"

namespace fuzz {

// A user whose every event comes from the input, also behind the end of a dialog, and who closes
// at last whatever is still open. What a dialog promises is looked at after each event.
class RandomUser : public control::Dialogs {
 public:
  // files: what can be chosen in the open-file dialog.
  RandomUser(Input& input, std::vector<std::string> files)
      : input_(input), files_(std::move(files)) {}

  void ShowModal(control::frmOptions& dialog) override;
  void ShowModal(ModColor::frmColorKey& dialog) override;
  void ShowModal(ModColor::frmAutoDiv& dialog) override;
  void ShowModal(ModColor::frmColorRamp& dialog) override;
  void ShowModal(ModColor::frmVarName& dialog) override;
  std::optional<platform::Colour> ChooseColor(platform::Colour preset) override;
  std::optional<std::string> ChooseKewFile() override;

 private:
  void event(control::frmOptions& dialog);
  void event(ModColor::frmColorKey& dialog);
  void edit(ModColor::frmColorKey& dialog);
  template <class Form>
  void play(Form& dialog);
  double number();

  Input& input_;
  std::vector<std::string> files_;
};

}  // namespace fuzz
