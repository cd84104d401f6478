// A sequence of the control's members with any arguments, on data sets of all kinds: no exception
// but the run-time errors of the three members that have them, the shared records agree after every
// call, and no file of the user's is touched but the key files that were asked for.

#include <algorithm>
#include <string>

#include "colorkey/colorKey.h"
#include "colorkey/kewFile.h"
#include "colorkey/rampColour.h"
#include "control/KelvaneCtl.h"
#include "netcdf/ncf.h"
#include "render/settings.h"
#include "section/drawItems.h"
#include "section/sectionPath.h"
#include "support/sampleSets.h"
#include "targets/support/CheckedBox.h"
#include "targets/support/Input.h"
#include "targets/support/RandomUser.h"
#include "targets/support/dataSets.h"
#include "targets/support/files.h"
#include "targets/support/invariants.h"
#include "targets/support/must.h"
#include "util/RuntimeError.h"

namespace {

class QuietDesktop : public platform::Desktop {
 public:
  void ShowMessage(std::string_view text, std::string_view caption,
                   platform::MessageIcon) override {
    MUST(!text.empty() && !caption.empty());
  }
  void SetWaitPointer(bool wait) override { waits_ += wait ? 1 : -1; }
  bool waiting() const { return waits_ != 0; }

 private:
  int waits_ = 0;
};

const char* const kNames[] = {"temp",    "TEMP",  "salt", "zeta", "a \"flat\" <one>",
                              "letters", "depth", "",     "lon",  "no such variable"};

class Program {
 public:
  explicit Program(fuzz::Input& input)
      : input_(input),
        keys_{fuzz::writeScratch("good.kew",
                                 "<section><variable name=\"temp\"><division><low>1</low><high>5"
                                 "</high><color>255</color></division></variable></section>"),
              fuzz::writeScratch("bad.kew", "<section><variable name=\"temp\">"),
              fuzz::scratchFile("missing.kew")},
        user_(input, keys_) {}

  void run() {
    for (int32_t left = 60; left > 0 && !input_.atEnd(); --left) {
      call();
      MUST(!desktop_.waiting());
      fuzz::checkRecords();
      lookAround();
    }
  }

 private:
  void call();
  void dataSet();
  void path();
  void key();

  // The outcomes of the members that have one.
  static void outcome(int16_t result) { MUST(result == 1 || result == -1); }

  // A member that may hand a run-time error to its host.
  template <class Member>
  static void mayFail(Member member, int number) {
    try {
      member();
    } catch (const util::RuntimeError& error) {
      MUST(error.number() == number || error.number() == util::kSubscript);
    }
  }

  void lookAround() {
    const int32_t items = control_.NumDrawAbleItems();
    MUST(items >= 0 && control_.ItemName(0).empty() && control_.ItemName(items + 1).empty());
    for (int32_t n = 1; n <= items; ++n) MUST(!control_.ItemName(n).empty());
    MUST(!(control_.DrawProfile() && control_.DrawVerticalSection()));
  }

  fuzz::Input& input_;
  std::vector<std::string> keys_;
  fuzz::RandomUser user_;
  QuietDesktop desktop_;
  fuzz::CheckedPictures pictures_;
  control::KelvaneCtl control_{pictures_.pictures(), desktop_, user_};
};

void Program::dataSet() {
  const auto& names = fuzz::dataSetNames();
  const std::string& name =
      names[static_cast<std::size_t>(input_.choice(static_cast<int32_t>(names.size())))];
  const int16_t result = control_.NcFile(name);
  outcome(result);
  MUST(ocxNetNc::DataSetName == name);
  if (result == 1) {
    MUST(control_.NumDrawAbleItems() >= 1 && KelvaneMain::Item_shown == 1);
    MUST(KelvaneMain::VarShown >= 1 && KelvaneMain::VarShown <= ocxNetNc::ncf.NcVars.size());
  }
}

void Program::path() {
  control_.NewSection();
  for (int32_t left = input_.choice(5); left > 0; --left) {
    const float x = input_.single();
    const float y = input_.single();
    control_.AddSection(x, y);
  }
  const int16_t result = control_.EndSection();
  outcome(result);
  MUST(result == -1 ? !control_.ErrorMessage().empty() : KelvaneMain::section.ncols >= 2);
  for (const KelvaneMain::Cell& cell : KelvaneMain::section.column_cells) {
    MUST(cell.i <= ocxNetNc::ncf.nlon && cell.j <= ocxNetNc::ncf.nlat);
  }
}

void Program::key() {
  switch (input_.choice(6)) {
    case 0:
      control_.NewColorKey();
      break;
    case 1:
      outcome(control_.KewFile(keys_[static_cast<std::size_t>(input_.choice(3))]));
      break;
    case 2:
      control_.UseColorKey(input_.coin());
      break;
    case 3:
      control_.InitColorKey();
      break;
    case 4:
      // What no member sets, and a host's own page of the ramp would.
      ModColor::RampDirection = input_.integer();
      if (ModColor::bUseKey >= 0) ModColor::bUseKey = input_.choice(5);
      break;
    default: {
      const float low = input_.single();
      const float high = input_.single();
      mayFail([&] { control_.AddColorKey(low, high, input_.integer()); }, util::kOverflow);
      break;
    }
  }
}

void Program::call() {
  switch (input_.choice(16)) {
    case 0:
      dataSet();
      break;
    case 1:
    case 2:
      path();
      break;
    case 3:
      outcome(control_.SetVarByName(kNames[input_.choice(std::size(kNames))]));
      break;
    case 4:
      outcome(control_.SetVarByOrder(input_.integer()));
      break;
    case 5:
    case 6:
      control_.Draw();
      break;
    case 7:
      mayFail([&] { MUST(control_.AdvanceTime(input_.integer()) == KelvaneMain::TimeShown); },
              util::kOverflow);
      break;
    case 8:
      control_.SetCurrentTime(input_.integer());
      break;
    case 9:
      key();
      break;
    case 10:
      control_.ShowOptions();
      break;
    case 11: {
      // No host has a larger window.
      const int32_t width = std::min(input_.integer(), 32767);
      control_.Resize(width, std::min(input_.integer(), 32767));
      break;
    }
    case 12:
      control_.DrawProfile(input_.coin());
      // As the options dialog sets them.
      KelvaneMain::settings.ViewStyle = input_.choice(2);
      KelvaneMain::settings.ProfileStyle = input_.choice(2);
      break;
    case 13:
      control_.DrawVerticalSection(input_.coin());
      break;
    case 14:
      mayFail([&] { control_.AddSection(input_.single(), input_.single()); }, util::kOverflow);
      break;
    default:
      control_.ReDraw();
      break;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  fuzz::dataSetNames();
  support::resetState();
  fuzz::Input input(data, size);
  Program(input).run();
  support::resetState();
  MUST(fuzz::dataSetsAsMade());
  for (const std::string& name : fuzz::scratchContents()) {
    if (name.ends_with(".KEW")) fuzz::removeScratch(name);
    MUST(name.ends_with(".KEW") || name.ends_with(".kew") || name.ends_with(".nc"));
  }
  return 0;
}
