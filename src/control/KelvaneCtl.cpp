#include "control/KelvaneCtl.h"

#include <algorithm>
#include <new>
#include <string_view>

#include "colorkey/colorKey.h"
#include "colorkey/initColorKey.h"
#include "colorkey/kewFile.h"
#include "control/frmOptions.h"
#include "netcdf/catalogue.h"
#include "netcdf/geoWindow.h"
#include "netcdf/identify.h"
#include "netcdf/ncf.h"
#include "netcdf/title.h"
#include "render/drawVSection.h"
#include "render/profileView.h"
#include "render/settings.h"
#include "section/drawItems.h"
#include "section/sectionPath.h"
#include "section/sectionValues.h"
#include "util/lastError.h"
#include "util/rounding.h"

namespace control {

using namespace KelvaneMain;
using ocxNetNc::ncf;
using platform::DesktopScope;

namespace {

constexpr int16_t kSuccess = 1;
constexpr int16_t kFailure = -1;

int16_t outcome(int32_t status) { return status >= 0 ? kSuccess : kFailure; }

// Runs what belongs to a member and reports what it throws, most often for want of memory, under
// the member's name; the result is then the given one.
template <class Result, class Body>
Result trapped(std::string_view member, Result failed, const Body& body) noexcept {
  try {
    return body();
  } catch (...) {
    util::reportBracketed(member);
    return failed;
  }
}
template <class Body>
void trapped(std::string_view member, const Body& body) noexcept {
  trapped(member, 0, [&] {
    body();
    return 0;
  });
}

// The texts that members give; where a copy has no room in memory, this has.
const char* const kNoRoom = "Out of memory";

}  // namespace

KelvaneCtl::KelvaneCtl(platform::Pictures pictures, platform::Desktop& desktop, Dialogs& dialogs)
    : pictures_(pictures), desktop_(desktop), dialogs_(dialogs) {}

void KelvaneCtl::ShowOptions() {
  const DesktopScope scope(desktop_);
  trapped("ShowOptions", [&] {
    if (OpenOptionsForm(dialogs_) > 0) DrawHeld();
  });
}

int16_t KelvaneCtl::NcFile(const std::string& filename) {
  const DesktopScope scope(desktop_);
  return trapped("NcFile", kFailure, [&] { return open(filename); });
}

int16_t KelvaneCtl::open(const std::string& filename) {
  ocxNetNc::DataSetName = filename;
  if (ocxNetNc::OpenCatalogue(filename, 0) < 0) return kFailure;
  if (ocxNetNc::IdentifyCoordinates() <= 0) return kFailure;
  if (BuildDrawItems() <= 0) return kFailure;
  if (ocxNetNc::SetGeoWindow() <= 0) return kFailure;
  ResetSettings();
  Item_shown = 1;
  VarShown = ItemMatch(Item_shown);
  TimeShown = 1;
  return ocxNetNc::MakeTitle(VarShown, TimeShown) > 0 ? kSuccess : kFailure;
}

int16_t KelvaneCtl::KewFile(const std::string& filename) {
  const DesktopScope scope(desktop_);
  ModColor::ColorKey.nDivision = ModColor::GetKewCol(filename);
  return ModColor::ColorKey.nDivision == -1 ? kFailure : kSuccess;
}

void KelvaneCtl::NewSection() { ClearSectionPoints(); }

void KelvaneCtl::AddSection(float X, float y) { AddSectionPoint(X, y); }

void KelvaneCtl::AddColorKey(float vLow, float vHig, int32_t col) {
  ModColor::AddColorKey(vLow, vHig, col);
}

void KelvaneCtl::NewColorKey() { ModColor::NewColorKey(); }

int16_t KelvaneCtl::EndSection() {
  const DesktopScope scope(desktop_);
  return trapped("EndSection", kFailure, [] { return outcome(MakeKelvane()); });
}

int16_t KelvaneCtl::SetVarByName(const std::string& vName) {
  const DesktopScope scope(desktop_);
  return trapped("SetVarByName", kFailure, [&] { return outcome(SelectVarByName(vName)); });
}

int16_t KelvaneCtl::SetVarByOrder(int32_t Order) {
  const DesktopScope scope(desktop_);
  return trapped("SetVarByOrder", kFailure, [&] { return outcome(SelectVarByOrder(Order)); });
}

std::string KelvaneCtl::ErrorMessage() const {
  try {
    return util::LastError;
  } catch (const std::bad_alloc&) {
    return kNoRoom;
  }
}

int32_t KelvaneCtl::NumDrawAbleItems() const { return nDrawItems(); }

std::string KelvaneCtl::ItemName(int32_t nOrder) const {
  try {
    return DrawItems.has(nOrder) ? DrawItems(nOrder).name : std::string();
  } catch (...) {
    util::reportBracketed("ItemName");
    return {};
  }
}

bool KelvaneCtl::DrawProfile() const { return settings.ViewMode == kProfileView; }

void KelvaneCtl::DrawProfile(bool profile) {
  settings.ViewMode = profile ? kProfileView : kSectionView;
}

bool KelvaneCtl::DrawVerticalSection() const { return settings.ViewMode == kSectionView; }

void KelvaneCtl::DrawVerticalSection(bool section) {
  settings.ViewMode = section ? kSectionView : kProfileView;
}

void KelvaneCtl::Draw() {
  const DesktopScope scope(desktop_);
  trapped("Draw", [&] {
    if (Item_shown < 1) {
      Item_shown = 1;
      VarShown = ItemMatch(Item_shown);
    }
    ReadAndDraw();
  });
}

void KelvaneCtl::SetCurrentTime(int32_t lTime) {
  const DesktopScope scope(desktop_);
  TimeShown = lTime;
  if (lTime >= 1) trapped("SetCurrentTime", [&] { ReadAndDraw(); });
}

int32_t KelvaneCtl::AdvanceTime(int32_t nt) {
  const DesktopScope scope(desktop_);
  const int32_t next = util::addLong(TimeShown, nt);
  TimeShown = next > ncf.ntime ? 1 : next;
  ReadAndDraw();
  return TimeShown;
}

void KelvaneCtl::ReDraw() {
  const DesktopScope scope(desktop_);
  trapped("ReDraw", [&] { DrawHeld(); });
}

bool KelvaneCtl::UseColorKey() const { return ModColor::bUseKey == -1; }

void KelvaneCtl::UseColorKey(bool use) { ModColor::UseColorKey(use); }

// Always anew, whatever key is there.
void KelvaneCtl::InitColorKey() {
  const DesktopScope scope(desktop_);
  trapped("InitColorKey", [] {
    ModColor::NewColorKey();
    ModColor::InitColorKey(ModColor::ownKewFile());
  });
}

void KelvaneCtl::Resize(int32_t width, int32_t height) {
  trapped("Resize", [&] { take({.width = std::max(width, 0), .height = std::max(height, 0)}); });
}

void KelvaneCtl::take(Size size) {
  for (platform::PictureBox* picture : {&pictures_.picDateTime, &pictures_.picSection,
                                        &pictures_.picContours, &pictures_.Picture1}) {
    picture->Move(0, 0, size.width, size.height);
  }
  if (size == size_) return;
  size_ = size;
  ReDraw();
}

void KelvaneCtl::ReadAndDraw() {
  if (ReadVSData(VarShown, TimeShown) > 0) {
    RoundPlotRange();
    ocxNetNc::MakeTitle(VarShown, TimeShown);
  }
  DrawHeld();
}

// Without a single pixel nothing is drawn: there the mapping would fail with a message box, in
// the midst of a host's layout.
void KelvaneCtl::DrawHeld() {
  if (pictures_.Picture1.ScaleWidth() < 1 || pictures_.Picture1.ScaleHeight() < 1) return;
  if (settings.ViewMode == kProfileView) {
    DrawProfileView(pictures_);
  } else if (settings.ViewMode == kSectionView) {
    DrawVSection(pictures_);
  }
}

}  // namespace control
