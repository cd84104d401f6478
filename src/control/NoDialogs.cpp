#include "control/NoDialogs.h"

#include "colorkey/frmAutoDiv.h"
#include "colorkey/frmColorKey.h"
#include "colorkey/frmColorRamp.h"
#include "colorkey/frmVarName.h"
#include "control/frmOptions.h"

namespace control {
namespace {

class NoDialogs : public Dialogs {
 public:
  void ShowModal(frmOptions& dialog) override { dialog.closeBox(); }
  void ShowModal(ModColor::frmColorKey& dialog) override { dialog.closeBox(); }
  void ShowModal(ModColor::frmAutoDiv& dialog) override { dialog.closeBox(); }
  void ShowModal(ModColor::frmColorRamp& dialog) override { dialog.closeBox(); }
  void ShowModal(ModColor::frmVarName& dialog) override { dialog.closeBox(); }
  std::optional<platform::Colour> ChooseColor(platform::Colour) override { return std::nullopt; }
  std::optional<std::string> ChooseKewFile() override { return std::nullopt; }
};

}  // namespace

Dialogs& noDialogs() {
  static NoDialogs none;
  return none;
}

}  // namespace control
