#include "failing/memory/MemoryTest.h"

#include <filesystem>
#include <fstream>
#include <new>
#include <sstream>

#include "colorkey/colorKey.h"
#include "failing/memory/Shortage.h"
#include "netcdf/ncf.h"
#include "netcdf/title.h"
#include "render/settings.h"
#include "section/drawItems.h"
#include "section/sectionValues.h"
#include "support/sampleSets.h"
#include "util/lastError.h"

namespace failing {
namespace {

// More allocations than any call makes.
constexpr uint64_t kMost = 100'000;

void print(std::ostream& text, const support::RecordingPictureBox& box) {
  for (const support::Operation& one : box.operations) {
    text << static_cast<int>(one.kind) << ' ' << one.x1 << ' ' << one.y1 << ' ' << one.x2 << ' '
         << one.y2 << ' ' << one.colour << ' ' << one.text << ' ' << one.font.Bold << ' '
         << one.drawWidth << '\n';
  }
}

bool speaksOfMemory(const std::string& text) {
  return text.find("memory") != std::string::npos;
}

// A file of keys without its colours, some of which are by chance.
std::string withoutColours(const std::string& file) {
  const std::string tag = "<color>";
  std::string rest;
  std::size_t place = 0;
  for (std::size_t found = file.find(tag); found != std::string::npos;
       found = file.find(tag, place)) {
    rest += file.substr(place, found + tag.size() - place);
    place = file.find_first_not_of("0123456789", found + tag.size());
    if (place == std::string::npos) return rest;
  }
  return rest + file.substr(place);
}

}  // namespace

std::string MemoryTest::contentsOf(const std::string& name) const {
  std::ifstream file(support::pathOf(name), std::ios::binary);
  std::ostringstream contents;
  contents << file.rdbuf();
  return contents.str();
}

std::string MemoryTest::everything() const {
  std::ostringstream text;
  for (int32_t item = 1; item <= shown.NumDrawAbleItems(); ++item) {
    text << shown.ItemName(item) << ' ';
  }
  for (const std::string& line : ocxNetNc::TitleLines) text << line << '\n';
  text << KelvaneMain::Item_shown << ' ' << KelvaneMain::VarShown << ' ' << KelvaneMain::TimeShown
       << ' ' << KelvaneMain::settings.ViewMode << ' ' << KelvaneMain::settings.ViewStyle << ' '
       << KelvaneMain::NumSectionPoints << ' ' << KelvaneMain::section.ncols << '\n';
  for (const float value : KelvaneMain::section_values.values()) text << value << ' ';
  text << ModColor::ColorKey.nDivision << ' ' << ModColor::bUseKey << '\n';
  for (const support::RecordingPictureBox* box :
       {&boxes.Picture1, &boxes.picDateTime, &boxes.picSection, &boxes.picContours}) {
    print(text, *box);
  }
  return text.str();
}

void MemoryTest::begin(const Member& member) {
  support::resetState();
  dialogs = {};
  member.before();
  boxes.forget();
  desktop.messages.clear();
  util::LastError.clear();
}

void MemoryTest::checkFailure(const Member& member, int result, const std::string& thrown,
                              const std::string& good) {
  if (!thrown.empty()) {
    EXPECT_EQ(member.runTimeError, RunTimeError::Allowed) << "an exception got out: " << thrown;
    return;
  }
  bool told = speaksOfMemory(util::LastError) ||
              (!member.alsoTold.empty() && util::LastError == member.alsoTold);
  for (const auto& message : desktop.messages) told = told || speaksOfMemory(message.text);
  if (result == member.success && !told) {
    EXPECT_EQ(everything(), good) << "a success that is none; LastError " << util::LastError;
  } else {
    EXPECT_TRUE(told) << "result " << result << ", LastError " << util::LastError;
  }
}

// Whatever a failed call has left, no member may fall over it.
void MemoryTest::useEverything() {
  const auto tried = [](const auto& call) {
    try {
      call();
    } catch (const util::RuntimeError&) {
    }
  };
  for (int32_t item = 0; item <= shown.NumDrawAbleItems() + 1; ++item) shown.ItemName(item);
  shown.ReDraw();
  shown.DrawProfile(true);
  shown.ReDraw();
  shown.DrawVerticalSection(true);
  KelvaneMain::settings.ViewStyle = 1;
  shown.Draw();
  shown.UseColorKey(true);
  shown.Draw();
  tried([&] { shown.AddColorKey(0, 1, 255); });
  shown.UseColorKey(true);
  tried([&] { shown.AdvanceTime(1); });
  shown.EndSection();
  shown.Draw();
  shown.SetVarByOrder(2);
  shown.SetCurrentTime(1);
  tried([&] { shown.AddSection(350, 0); });
  shown.NewSection();
  shown.EndSection();
  shown.Draw();
}

void MemoryTest::inEveryShortage(const Member& member) {
  // What only keeps room for its next contents is nothing lost.
  util::LastError.reserve(1000);
  desktop.messages.reserve(10);
  begin(member);
  ASSERT_EQ(member.call(), member.success) << util::LastError;
  const std::string good = everything();
  const std::string goodFile = withoutColours(contentsOf(keyFile));
  useEverything();
  for (const Extent extent : {Extent::Once, Extent::FromThenOn}) {
    begin(member);
    member.call();
    support::resetState();
    { SCOPED_TRACE("makes room for the traces"); }
    const int64_t held = allocationsHeld();
    uint64_t n = 0;
    for (bool met = true; met && n < kMost;) {
      ++n;
      SCOPED_TRACE(testing::Message() << "allocation " << n << (extent == Extent::Once ? "" : "..."));
      begin(member);
      const std::string fileBefore = contentsOf(keyFile);
      int result = 0;
      std::string thrown;
      {
        Shortage shortage(n, extent);
        try {
          result = member.call();
        } catch (const std::exception& failure) {
          shortage.end();
          thrown = failure.what();
        } catch (...) {
          shortage.end();
          thrown = "something";
        }
        met = shortage.end();
      }
      if (met) {
        checkFailure(member, result, thrown, good);
      } else {
        EXPECT_EQ(result, member.success) << util::LastError;
        EXPECT_EQ(everything(), good);
      }
      const std::string file = contentsOf(keyFile);
      EXPECT_TRUE(file == fileBefore || withoutColours(file) == goodFile) << file;
      useEverything();
      begin(member);
      EXPECT_EQ(member.call(), member.success) << "afterwards: " << util::LastError;
      EXPECT_EQ(everything(), good) << "afterwards";
      if (HasFailure() && ++failures_ > 3) break;
    }
    begin(member);
    member.call();
    support::resetState();
    EXPECT_EQ(allocationsHeld(), held) << "lost in " << n << " calls";
    EXPECT_EQ(n > 1, member.asks) << "that is what was to fail";
    EXPECT_LT(n, kMost) << "it never comes through";
    shortages_ += static_cast<int>(n - 1);
    RecordProperty("shortages", shortages_);
    if (HasFailure()) return;
  }
}

}  // namespace failing
