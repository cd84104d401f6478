#include "viewRequest.h"

#include "colorkey/colorKey.h"
#include "colorkey/kewFile.h"
#include "failures.h"
#include "interruption.h"
#include "kewKeys.h"
#include "nameList.h"
#include "netcdf/ncf.h"
#include "netcdf/remoteName.h"
#include "platform/files.h"
#include "render/settings.h"
#include "section/drawItems.h"
#include "sectionRequest.h"
#include "terminal.h"
#include "util/lastError.h"
#include "util/numberText.h"

namespace cli {
namespace {

std::string divisionCount() {
  const int32_t count = ModColor::ColorKey.nDivision;
  return std::to_string(count) + (count == 1 ? " division" : " divisions");
}

// The control's own wording behind a plain one.
std::string inBrackets(const std::string& text) { return text.empty() ? "" : " (" + text + ")"; }

std::string faultOf(const std::string& file) {
  std::vector<std::string> names;
  for (const ModColor::KewVariable& variable : keysOf(file)) {
    if (variable.ignored) continue;
    const std::string failure = failureOf(variable);
    if (variable.name == shownName() && !failure.empty()) return file + ": " + failure + ".";
    names.push_back(variable.name);
  }
  return file + (names.empty() ? " has no keys." : " has keys of " + nameList(names) + " only.");
}

// Why the control found no key for the variable in the file; its reader says nothing of a
// file that is missing, no KEW file or without the variable.
std::string reasonForNoKey(const std::string& file, const std::string& itsOwnText) {
  std::string fault;
  try {
    fault = faultOf(file);
  } catch (const Failure& error) {
    fault = error.what();
  }
  return "No colour key of " + shownName() + ": " + fault + inBrackets(itsOwnText);
}

// The control looks for the extension in the whole path: without one in the file's own name the
// last dot is that of a folder or a host, and the key would be kept in some other folder.
void checkOwnKewFile() {
  const std::string& name = ocxNetNc::ncf.NcFileName;
  const std::size_t dot = name.rfind('.'), slash = name.rfind('/');
  if (dot == std::string::npos || slash == std::string::npos || dot > slash) return;
  throw Failure("The data set " + ocxNetNc::withoutCredentials(name) +
                " has no key file of its own: .KEW takes the place of what follows the last dot, "
                "and here that is more than the end of the file's own name. Name a key file with "
                "--key.");
}

// A key of no range shades nothing, and once saved it would be loaded ever after.
void checkKeyCanBeMade(const std::string& file) {
  const std::string start = "No colour key of " + shownName() + " can be made: ";
  const std::string end = "; " + file + " was not written.";
  if (sectionIsEmpty()) {
    throw Failure(start + "every value is missing along this path in this time step" + end);
  }
  const KelvaneMain::DrawItem& item = KelvaneMain::DrawItems(KelvaneMain::Item_shown);
  if (item.plot_min == item.plot_max) {
    throw Failure(start + "every value is " + util::generalText(item.plot_min) + end);
  }
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
  if (view.autoKey) checkOwnKewFile();
}

void initColorKey(control::KelvaneCtl& control, TerminalDesktop& desktop) {
  const std::string ownFile = ModColor::ownKewFile();
  const std::string file = ocxNetNc::withoutCredentials(ownFile);
  const bool wasThere = platform::fileExists(ownFile);
  if (!wasThere) checkKeyCanBeMade(file);
  util::LastError.clear();
  desktop.lastMessage.clear();
  {
    const SignalsWait untilSaved;
    control.InitColorKey();
  }
  const std::string text = control.ErrorMessage();
  if (!desktop.lastMessage.empty()) {
    const std::string itsOwnText =
        (text.empty() ? "" : text + "; ") + "InitColorKey: " + desktop.lastMessage;
    throw Failure(wasThere ? reasonForNoKey(file, itsOwnText)
                           : "No colour key of " + shownName() + " could be made." +
                                 inBrackets(itsOwnText));
  }
  if (!text.empty()) {
    throw Failure("The colour key of " + shownName() + " could not be saved in " + file + ": " +
                  text);
  }
  report("note: the colour key of " + shownName() + " (" + divisionCount() + ") was " +
         (wasThere ? "loaded from " : "made with random colours and saved in ") + file + ".");
}

}  // namespace cli
