#include <gtest/gtest.h>

#include <algorithm>

#include "Form.h"
#include "library.h"
#include "reference.h"
#include "render/plotFrame.h"
#include "section/drawItems.h"
#include "section/sectionPath.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"

namespace winetest {
namespace {

using host::Form;
using host::Picture;

constexpr double kDepths[] = {0, 0, 50, 200};  // counted from 1
constexpr int kCellLevels = 2;                 // the last level is the lower edge of its cells

// The tiny set's values, from what it is made by. False where none stands.
bool valueByHand(const std::string& variable, int time, int k, int j, int i, double& value) {
  if (variable == "temp") {
    value = 10 + 0.01 * (900 - 350 * k + 37 * i - 20 * j + 55 * time);
    return k < 3 || i < 5;
  }
  value = 34 + 0.25 * k + 0.125 * i - 0.0625 * j;
  return j != 1;
}

struct Section {
  std::string variable;
  int time;
  Path path;
};

void PrintTo(const Section& section, std::ostream* out) {
  *out << (section.variable + " at " + std::to_string(section.time));
}

class FormPicture : public testing::TestWithParam<Section> {
 protected:
  FormPicture() { support::makeTinySet(file_); }

  void drawOn(Form& form, const Section& section) {
    auto& control = form.control();
    control.put(L"UseColorKey", false);  // controls of a process share their state
    EXPECT_EQ(control.call(L"NcFile", {host::wide(file_)}).number(), 1);
    control.call(L"NewSection");
    for (const auto& [x, y] : section.path) control.call(L"AddSection", {x, y});
    EXPECT_EQ(control.call(L"EndSection").number(), 1);
    EXPECT_EQ(control.call(L"SetVarByName", {host::wide(section.variable)}).number(), 1);
    control.call(L"SetCurrentTime", {section.time});
    form.pump();
  }

  support::TempFolder folder_;
  const std::string file_ = folder_.file("tiny.nc");
};

const Section kAlongMeridian = {"temp", 1, {{354.5, -1}, {354.5, 0.4}}};
const Section kAlongParallel = {"temp", 1, {{350, 0}, {358, 0}}};

// Every cell's middle has the colour that its value asks for, worked out by hand from the data
// set's recipe; only where the cells lie is taken from the core.
TEST_P(FormPicture, ShowsEveryCell) {
  const Section& section = GetParam();
  Form form(kProgId, 600, 400);
  drawOn(form, section);
  const Picture picture = form.shoot();

  Reference reference(600, 400);
  ASSERT_TRUE(reference.draw(file_, section.variable, section.path, section.time));
  const auto& item = KelvaneMain::DrawItems(KelvaneMain::Item_shown);
  const double least = static_cast<double>(item.plot_min);
  const double span = static_cast<double>(item.plot_max) - least;
  ASSERT_GT(span, 0);
  ASSERT_GE(KelvaneMain::section.ncols, 3);
  for (int32_t c = 1; c <= KelvaneMain::section.ncols; ++c) {
    const KelvaneMain::Cell cell = KelvaneMain::section.column_cells(c);
    for (int k = 1; k <= kCellLevels; ++k) {
      double value = 0;
      const bool stands = valueByHand(section.variable, section.time, k, cell.j, cell.i, value);
      const uint32_t expected = stands ? rampByHand((value - least) / span) : 0xFFFFFF;
      const auto middle = KelvaneMain::WorldToSurface(c - 0.5, -(kDepths[k] + kDepths[k + 1]) / 2);
      const uint32_t shown = picture.at(static_cast<int>(middle.x), static_cast<int>(middle.y));
      for (const int shift : {0, 8, 16}) {
        // The value went through singles; a component may fall to the other side of an integer.
        EXPECT_NEAR(static_cast<int>(shown >> shift & 0xFF),
                    static_cast<int>(expected >> shift & 0xFF), 1)
            << "column " << c << " level " << k;
      }
    }
  }
  EXPECT_TRUE(picture == reference.picture());
}

INSTANTIATE_TEST_SUITE_P(, FormPicture,
                         testing::Values(kAlongMeridian, kAlongParallel,
                                         Section{"temp", 2, {{350, -1}, {360, 0.5}}},
                                         Section{"salt", 1, {{350, -1}, {360, 0.5}}},
                                         Section{"salt", 2, {{354.5, -1}, {354.5, 0.4}}}));

using OneForm = FormPicture;

TEST_F(OneForm, HasTheKnownColours) {
  Form form(kProgId, 600, 400);
  drawOn(form, kAlongMeridian);
  const Picture picture = form.shoot();
  Reference reference(600, 400);
  ASSERT_TRUE(reference.draw(file_, "temp", kAlongMeridian.path, 1));
  const uint32_t expected[kCellLevels][3] = {{0xF50000, 0xF51212, 0xF52525},
                                             {0x4E4EF5, 0x6161F5, 0x7373F5}};
  for (int k = 1; k <= kCellLevels; ++k) {
    for (int c = 1; c <= 3; ++c) {
      const auto middle = KelvaneMain::WorldToSurface(c - 0.5, -(kDepths[k] + kDepths[k + 1]) / 2);
      EXPECT_EQ(picture.at(static_cast<int>(middle.x), static_cast<int>(middle.y)),
                expected[k - 1][c - 1])
          << "column " << c << " level " << k;
    }
  }
}

TEST_F(OneForm, ShadesThroughAKey) {
  Form form(kProgId, 600, 400);
  drawOn(form, kAlongMeridian);
  auto& control = form.control();
  control.call(L"NewColorKey");
  control.call(L"AddColorKey", {13.0, 13.3, 0x332211});  // blue, green, red
  control.call(L"AddColorKey", {13.2, 16.7, 0x665544});
  control.put(L"UseColorKey", true);
  control.call(L"ReDraw");
  form.pump();
  const Picture picture = form.shoot();

  Reference reference(600, 400);
  ASSERT_TRUE(reference.draw(file_, "temp", kAlongMeridian.path, 1));
  bool first = false, second = false, none = false;
  for (int32_t c = 1; c <= 3; ++c) {
    const KelvaneMain::Cell cell = KelvaneMain::section.column_cells(c);
    for (int k = 1; k <= kCellLevels; ++k) {
      double value = 0;
      ASSERT_TRUE(valueByHand("temp", 1, k, cell.j, cell.i, value));
      const bool inFirst = value >= 13.0 && value < 13.3;
      const bool inSecond = !inFirst && value >= 13.2 && value < 16.7;
      first |= inFirst;
      second |= inSecond;
      none |= !inFirst && !inSecond;
      const auto middle = KelvaneMain::WorldToSurface(c - 0.5, -(kDepths[k] + kDepths[k + 1]) / 2);
      EXPECT_EQ(picture.at(static_cast<int>(middle.x), static_cast<int>(middle.y)),
                inFirst    ? 0x112233U
                : inSecond ? 0x445566U
                           : 0xFFFFFFU)
          << "column " << c << " level " << k << " value " << value;
    }
  }
  EXPECT_TRUE(first && second && none);
}

TEST_F(OneForm, DrawsProfiles) {
  Form form(kProgId, 600, 400);
  drawOn(form, kAlongParallel);
  const Picture section = form.shoot();
  form.control().put(L"DrawProfile", true);
  EXPECT_TRUE(form.shoot() == section) << "choosing the view draws nothing";
  form.control().call(L"Draw");
  form.pump();
  const Picture profiles = form.shoot();
  Reference reference(600, 400);
  ASSERT_TRUE(reference.draw(file_, "temp", kAlongParallel.path, 1));
  reference.members().DrawProfile(true);
  reference.members().ReDraw();
  EXPECT_TRUE(profiles == reference.picture());
  const auto brightBlue = std::count(profiles.pixels.begin(), profiles.pixels.end(), 0x0000FFU);
  EXPECT_GT(brightBlue, 200) << "two profiles from top to bottom, two pixels wide";
  form.resize(500, 300);
  reference.members().Resize(500, 300);
  EXPECT_TRUE(form.shoot() == reference.picture());
  form.control().put(L"DrawVerticalSection", true);
  form.resize(600, 400);
  EXPECT_TRUE(form.shoot() == section);
}

TEST_F(OneForm, IsRedrawnAtEverySize) {
  Form form(kProgId, 600, 400);
  drawOn(form, kAlongParallel);
  Reference reference(600, 400);
  ASSERT_TRUE(reference.draw(file_, "temp", kAlongParallel.path, 1));
  for (const auto& [width, height] : {std::pair(300, 200),
                                      {801, 503},
                                      {640, 60},
                                      {60, 480},
                                      {1, 1},
                                      {0, 0},
                                      {1500, 900},
                                      {640, 480}}) {
    form.resize(width, height);
    reference.members().Resize(width, height);
    if (width == 0) continue;  // no pixel to compare
    EXPECT_TRUE(form.shoot() == reference.picture()) << width << " x " << height;
  }
}

TEST_F(OneForm, StepsThroughTime) {
  Form form(kProgId, 500, 300);
  drawOn(form, kAlongParallel);
  const Picture first = form.shoot();
  EXPECT_EQ(form.control().call(L"AdvanceTime", {1}).number(), 2);
  const Picture second = form.shoot();
  EXPECT_FALSE(second == first);
  Reference reference(500, 300);
  ASSERT_TRUE(reference.draw(file_, "temp", kAlongParallel.path, 1));
  reference.members().AdvanceTime(1);
  EXPECT_TRUE(second == reference.picture());
}

TEST_F(OneForm, DrawsElsewhereWhatTheWindowShows) {
  Form form(kProgId, 500, 300);
  drawOn(form, kAlongParallel);
  EXPECT_TRUE(form.oleDraw() == form.shoot());
  form.resize(333, 222);
  EXPECT_TRUE(form.oleDraw() == form.shoot());
}

TEST_F(OneForm, ComesBackAfterBeingCovered) {
  Form form(kProgId, 500, 300);
  drawOn(form, kAlongParallel);
  const Picture before = form.shoot();
  const HWND cover = CreateWindowExW(WS_EX_TOPMOST, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 100, 50,
                                     200, 150, nullptr, nullptr, nullptr, nullptr);
  UpdateWindow(cover);
  form.pump();
  DestroyWindow(cover);
  form.pump();
  EXPECT_TRUE(form.shoot() == before);
  InvalidateRect(form.window(), nullptr, TRUE);
  RedrawWindow(form.window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
  EXPECT_TRUE(form.shoot() == before);
}

TEST_F(OneForm, StaysAsItIsWhenADataSetFails) {
  Form form(kProgId, 500, 300);
  drawOn(form, kAlongParallel);
  const Picture before = form.shoot();
  EXPECT_EQ(form.control().call(L"NcFile", {host::wide(folder_.file("missing.nc"))}).number(), -1);
  form.pump();
  EXPECT_TRUE(form.shoot() == before);
}

}  // namespace
}  // namespace winetest
