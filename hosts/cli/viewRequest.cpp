#include "viewRequest.h"

#include "colorkey/colorKey.h"
#include "colorkey/kewFile.h"
#include "failures.h"
#include "interruption.h"
#include "kewKeys.h"
#include "netcdf/ncf.h"
#include "platform/files.h"
#include "render/settings.h"
#include "sectionRequest.h"
#include "terminal.h"
#include "util/lastError.h"

namespace cli {
namespace {

std::string divisionCount() {
  const int32_t count = ModColor::ColorKey.nDivision;
  return std::to_string(count) + (count == 1 ? " division" : " divisions");
}

// Why the control found no key for the variable in the file; its reader says nothing of a
// file that is missing, no KEW file or without the variable.
std::string reasonForNoKey(const std::string& file, const std::string& itsOwnText) {
  const std::string start = "No colour key of " + shownName() + ": ";
  if (!itsOwnText.empty()) return start + file + ": " + itsOwnText;
  std::string names;
  try {
    for (const ModColor::KewVariable& variable : keysOf(file)) {
      if (!variable.ignored) names += (names.empty() ? "" : ", ") + variable.name;
    }
  } catch (const Failure& error) {
    return start + error.what();
  }
  return start + file + (names.empty() ? " has no keys." : " has keys of " + names + " only.");
}

void loadKey(control::KelvaneCtl& control, const std::string& file) {
  util::LastError.clear();
  if (control.KewFile(file) != 1) throw Failure(reasonForNoKey(file, control.ErrorMessage()));
  control.UseColorKey(true);
  if (!control.UseColorKey()) {
    report("note: the key of " + shownName() + " in " + file +
           " has no divisions; the section is drawn in the colours of the ramp.");
  }
}

}  // namespace

void applyView(control::KelvaneCtl& control, const ViewRequest& view) {
  control.DrawProfile(view.profile);
  KelvaneMain::settings.ProfileStyle = view.single ? 1 : 0;
  KelvaneMain::settings.ViewStyle = view.contours ? 1 : 0;
  if (view.keyFile) loadKey(control, *view.keyFile);
}

void initColorKey(control::KelvaneCtl& control, TerminalDesktop& desktop) {
  const std::string file = ModColor::ownKewFile();
  const bool wasThere = platform::fileExists(file);
  util::LastError.clear();
  desktop.lastMessage.clear();
  {
    const SignalsWait untilSaved;
    control.InitColorKey();
  }
  const std::string text = control.ErrorMessage();
  if (!desktop.lastMessage.empty()) {
    throw Failure("InitColorKey: " + desktop.lastMessage + "\n" +
                  (wasThere ? reasonForNoKey(file, text) : text));
  }
  if (!text.empty()) {
    throw Failure("The colour key of " + shownName() + " could not be saved in " + file + ": " +
                  text);
  }
  report("note: the colour key of " + shownName() + " (" + divisionCount() + ") was " +
         (wasThere ? "loaded from " : "made with random colours and saved in ") + file + ".");
}

}  // namespace cli
