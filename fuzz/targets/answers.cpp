// The control on data sets, answers and refusals of a netCDF library that come from the input:
// attributes and shapes that no file has, a data set that is another one when it is opened again.

#include <algorithm>

#include "control/KelvaneCtl.h"
#include "netcdf/ncf.h"
#include "netcdf/status.h"
#include "render/settings.h"
#include "section/drawItems.h"
#include "support/sampleSets.h"
#include "targets/support/CheckedBox.h"
#include "targets/support/FakeLibrary.h"
#include "targets/support/Input.h"
#include "targets/support/invariants.h"
#include "targets/support/must.h"
#include "util/RuntimeError.h"

namespace {

class NoDesktop : public platform::Desktop {
 public:
  void ShowMessage(std::string_view, std::string_view, platform::MessageIcon) override {}
  void SetWaitPointer(bool) override {}
};

void drawItems(control::KelvaneCtl& member, fuzz::Input& input) {
  const int32_t items = std::min(member.NumDrawAbleItems(), 4);
  for (int32_t n = 1; n <= items; ++n) {
    member.SetVarByOrder(n);
    member.Draw();
    fuzz::checkRecords();
    member.SetCurrentTime(input.integer());
    member.DrawProfile(input.coin());
    try {
      member.AdvanceTime(1);
    } catch (const util::RuntimeError& error) {
      MUST(error.number() == util::kOverflow);
    }
    fuzz::checkRecords();
  }
}

void useControl(fuzz::Input& input) {
  NoDesktop desktop;
  fuzz::CheckedPictures pictures;
  control::KelvaneCtl member(pictures.pictures(), desktop);
  member.Resize(300, 200);
  for (int32_t left = 1 + input.choice(3); left > 0; --left) {
    // A name that is no file: the check of headers is not asked.
    const int16_t opened = member.NcFile("http://127.0.0.1/set");
    MUST(opened == 1 || opened == -1);
    fuzz::checkRecords();
    KelvaneMain::settings.ViewStyle = input.choice(2);
    KelvaneMain::settings.ProfileStyle = input.choice(2);
    member.NewSection();
    member.AddSection(1, 1);
    member.AddSection(input.single(), input.single());
    member.EndSection();
    fuzz::checkRecords();
    drawItems(member, input);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  support::resetState();
  fuzz::Input input(data, size);
  {
    const fuzz::FakeLibrary library(input);
    useControl(input);
    ocxNetNc::NcClose();
  }
  support::resetState();
  return 0;
}
