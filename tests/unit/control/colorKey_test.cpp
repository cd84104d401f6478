#include "colorkey/colorKey.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>

#include "colorkey/initColorKey.h"
#include "colorkey/kewFile.h"
#include "colorkey/kewListing.h"
#include "netcdf/ncf.h"
#include "platform/Desktop.h"
#include "section/drawItems.h"
#include "section/sectionValues.h"
#include "unit/control/ControlTest.h"
#include "util/lastError.h"

using namespace KelvaneMain;
using ModColor::ColorKey;

namespace {

class ColorKeyMembers : public ControlTest {
 protected:
  std::string own() const { return folder.file("tiny.KEW"); }
  std::string write(const std::string& bytes, const std::string& name) const {
    std::ofstream(folder.path() / name, std::ios::binary) << bytes;
    return folder.file(name);
  }
  static std::string contentsOf(const std::string& fileName) {
    std::ostringstream contents;
    contents << std::ifstream(fileName, std::ios::binary).rdbuf();
    return contents.str();
  }
  bool ownFileIsThere() const { return std::filesystem::exists(folder.path() / "tiny.KEW"); }

  // The tiny set with a section along 16 blocks of two latitudes, as its ranges are known for.
  void openAcross() {
    ASSERT_EQ(control.NcFile(tinySet()), 1) << control.ErrorMessage();
    ASSERT_EQ(sectionThrough({{350, -1}, {360, 0.5F}}), 1) << control.ErrorMessage();
  }
  static std::vector<float> bounds() {
    std::vector<float> all;
    for (int32_t i = 1; i <= ColorKey.nDivision; ++i) all.push_back(ColorKey.low(i));
    if (ColorKey.nDivision > 0) all.push_back(ColorKey.high(ColorKey.nDivision));
    return all;
  }
  // The default key's own routine, below the member.
  void routine(const std::string& fileName) {
    const platform::DesktopScope scope(desktop);
    ModColor::InitColorKey(fileName);
  }
  void expectBox(const std::string& text) {
    const std::vector<support::RecordingDesktop::Message> expected{
        {text, "InitColorKey", platform::MessageIcon::Information}};
    EXPECT_EQ(desktop.messages, expected);
  }
};

const std::string kTemp =
    "<variable name='temp'><division><low>1</low><high>20</high><color>255</color></division>"
    "</variable>";
const std::string kSalt = "<variable name='salt'/>";
std::string kew(const std::string& variables) { return "<section>" + variables + "</section>"; }

// The range is that of the plot, rounded outwards below: 9 to 17.3.
const std::vector<float> kBounds = {9,      9.83F,      10.66F,     11.49F, 12.32F, 13.15F,
                                    13.98F, 14.809999F, 15.639999F, 16.47F, 17.3F};

TEST_F(ColorKeyMembers, LoadTheKeyOfTheItemShown) {
  ASSERT_EQ(control.NcFile(tinySet()), 1);
  const std::string file = write(kew(kSalt + kTemp), "any.kew");
  control.AddColorKey(5, 6, 7);
  EXPECT_EQ(control.KewFile(file), 1);
  EXPECT_EQ(ColorKey.nDivision, 1);
  EXPECT_EQ(ColorKey.high(1), 20.0F);
  EXPECT_FALSE(control.UseColorKey()) << "loading does not turn the key on";
  control.UseColorKey(true);
  EXPECT_TRUE(control.UseColorKey());
  ASSERT_EQ(control.SetVarByName("salt"), 1);
  EXPECT_EQ(control.KewFile(file), 1) << "a variable without divisions is a key of none";
  EXPECT_EQ(ColorKey.nDivision, 0);
  EXPECT_TRUE(control.UseColorKey()) << "nor does it turn the key off";
  EXPECT_EQ(control.ErrorMessage(), "");
}

TEST_F(ColorKeyMembers, FailToLoadFromAFileWithoutTheKey) {
  ASSERT_EQ(control.NcFile(tinySet()), 1);
  util::LastError = "kept";
  for (const std::string& file : {write(kew(kSalt), "salt.kew"), write("", "empty.kew"),
                                  write("<section>", "cut.kew"), folder.file("missing.kew")}) {
    control.NewColorKey();
    EXPECT_EQ(control.KewFile(file), -1) << file;
    EXPECT_EQ(ColorKey.nDivision, -1);
    control.UseColorKey(true);
    EXPECT_FALSE(control.UseColorKey());
    EXPECT_EQ(errorOf([&] { control.AddColorKey(0, 1, 255); }), util::kSubscript);
    EXPECT_EQ(ColorKey.nDivision, 0);
    control.AddColorKey(0, 1, 255);
    EXPECT_EQ(ColorKey.nDivision, 1);
  }
  EXPECT_EQ(control.ErrorMessage(), "kept");
}

TEST_F(ColorKeyMembers, SayWhyALoadFailedMidway) {
  ASSERT_EQ(control.NcFile(tinySet()), 1);
  const std::string broken =
      "<variable name='temp'><division><low>1</low><high>2</high>"
      "<color>3</color></division><division/></variable>";
  EXPECT_EQ(control.KewFile(write(kew(broken), "a.kew")), -1);
  EXPECT_EQ(control.ErrorMessage(),
            "ModColor GetKewCol: 91, KelvaneCtl, Object variable or With block variable not set");
  EXPECT_EQ(ColorKey.nDivision, -1);
  EXPECT_EQ(ColorKey.low.size(), 2) << "what was read before stays, and the place of the next";
  EXPECT_EQ(ColorKey.high(1), 2.0F);
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(ColorKeyMembers, HaveNothingToLoadForWithoutAnItem) {
  const std::string file = write(kew(kTemp), "a.kew");
  EXPECT_EQ(control.KewFile(file), -1);
  EXPECT_EQ(control.ErrorMessage(), "ModColor GetKewCol: 9, KelvaneCtl, Subscript out of range");
  EXPECT_EQ(ColorKey.nDivision, -1);
}

TEST_F(ColorKeyMembers, MakeTenDivisionsOfThePlottingRangeAndSaveThem) {
  ASSERT_NO_FATAL_FAILURE(openAcross());
  control.InitColorKey();
  EXPECT_EQ(bounds(), kBounds);
  for (int32_t i = 1; i < 10; ++i) EXPECT_EQ(ColorKey.high(i), ColorKey.low(i + 1)) << i;
  for (int32_t i = 1; i <= 10; ++i) {
    EXPECT_GE(ColorKey.color(i), 0);
    EXPECT_LE(ColorKey.color(i), 0xFFFFFF);
  }
  EXPECT_TRUE(control.UseColorKey());
  EXPECT_EQ(control.ErrorMessage(), "");
  EXPECT_TRUE(desktop.messages.empty());
  const auto saved = ModColor::ListKewFile(own());
  ASSERT_EQ(saved.size(), 1U);
  EXPECT_EQ(saved[0].name, "temp");
  ASSERT_EQ(saved[0].divisions.size(), 10U);
  for (int32_t i = 1; i <= 10; ++i) {
    const ModColor::KewDivision expected{ColorKey.low(i), ColorKey.high(i), ColorKey.color(i)};
    EXPECT_EQ(saved[0].divisions[static_cast<std::size_t>(i - 1)], expected) << i;
  }
}

TEST_F(ColorKeyMembers, DivideInSinglesFromARangeThatIsKept) {
  ASSERT_NO_FATAL_FAILURE(openAcross());
  DrawItems(1).plot_max = 28.7F;
  DrawItems(1).plot_min = 3;
  control.InitColorKey();
  EXPECT_EQ(bounds(), (std::vector<float>{3, 5.57F, 8.14F, 10.710001F, 13.280001F, 15.85F,
                                          18.420002F, 20.990002F, 23.560001F, 26.130001F, 28.7F}));
  DrawItems(1).plot_max = 3;
  DrawItems(1).plot_min = 28.7F;
  std::filesystem::remove(own());
  control.InitColorKey();
  EXPECT_EQ(ColorKey.low(1), 28.7F) << "a range upside down is divided upwards from its minimum";
  EXPECT_EQ(ColorKey.low(2), 31.270000457763672F);
}

TEST_F(ColorKeyMembers, TakeTheDefaultKeyFromTheOwnFileWhenItIsThere) {
  ASSERT_NO_FATAL_FAILURE(openAcross());
  write(kew(kTemp), "tiny.KEW");
  control.AddColorKey(5, 6, 7);
  control.AddColorKey(6, 7, 8);
  control.InitColorKey();
  EXPECT_EQ(bounds(), (std::vector<float>{1, 20}));
  EXPECT_TRUE(control.UseColorKey());
  EXPECT_EQ(contentsOf(own()), kew(kTemp)) << "reading saves nothing";
  EXPECT_EQ(section_values.ncols(), 0) << "and no section is read";
}

TEST_F(ColorKeyMembers, UseAKeyWithoutDivisionsThatIsInTheFile) {
  ASSERT_NO_FATAL_FAILURE(openAcross());
  write(kew("<variable name='temp'/>"), "tiny.KEW");
  control.InitColorKey();
  EXPECT_EQ(ColorKey.nDivision, 0);
  EXPECT_TRUE(control.UseColorKey());
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(ColorKeyMembers, MakeNoDefaultKeyWhileTheOwnFileHasNoneForTheItem) {
  const std::string broken = "<variable name='temp'><division/></variable>";
  for (const std::string& document : {kew(kSalt), kew(broken), std::string("<section>")}) {
    for (const bool use : {false, true}) {
      ASSERT_NO_FATAL_FAILURE(openAcross());
      write(document, "tiny.KEW");
      control.AddColorKey(5, 6, 7);
      control.UseColorKey(use);
      desktop.messages.clear();
      control.InitColorKey();
      expectBox("Subscript out of range");
      EXPECT_EQ(ColorKey.nDivision, 0);
      EXPECT_EQ(control.UseColorKey(), use);
      EXPECT_EQ(contentsOf(own()), document);
    }
  }
}

TEST_F(ColorKeyMembers, MakeNoDefaultKeyOfASectionThatCannotBeRead) {
  ASSERT_EQ(control.NcFile(tinySet()), 1);
  control.AddColorKey(5, 6, 7);
  control.InitColorKey();
  EXPECT_EQ(ColorKey.nDivision, 0);
  EXPECT_TRUE(ColorKey.low.empty());
  EXPECT_FALSE(control.UseColorKey());
  EXPECT_FALSE(ownFileIsThere());
  EXPECT_NE(control.ErrorMessage(), "") << "the reason";
  EXPECT_TRUE(desktop.messages.empty());
}

// Ten divisions of nothing, once saved, would be found by every later call.
TEST_F(ColorKeyMembers, MakeNoDefaultKeyOfASectionWithoutValues) {
  ASSERT_EQ(control.NcFile(tinySet()), 1);
  control.AddSection(350, -1);  // salt is missing in the southernmost row
  control.AddSection(358, -1);
  ASSERT_EQ(control.EndSection(), 1);
  ASSERT_EQ(control.SetVarByName("salt"), 1);
  control.AddColorKey(5, 6, 7);
  control.InitColorKey();
  EXPECT_EQ(ColorKey.nDivision, 0);
  EXPECT_FALSE(control.UseColorKey());
  EXPECT_FALSE(ownFileIsThere());
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(ColorKeyMembers, MakeNoDefaultKeyBeforeTheFirstDataSet) {
  control.InitColorKey();
  EXPECT_EQ(ColorKey.nDivision, 0);
  EXPECT_EQ(control.ErrorMessage(), "") << "there is no time step either";
  TimeShown = 1;
  control.InitColorKey();
  EXPECT_EQ(control.ErrorMessage(), "[ReadVSData&] nvar_it& <= 0; need to specify variable id");
  EXPECT_FALSE(std::filesystem::exists(".KEW"));
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(ColorKeyMembers, UseADefaultKeyThatCannotBeSaved) {
  ASSERT_NO_FATAL_FAILURE(openAcross());
  std::filesystem::create_directory(folder.path() / "tiny.KEW");
  control.InitColorKey();
  EXPECT_EQ(bounds(), kBounds);
  EXPECT_TRUE(control.UseColorKey());
  EXPECT_EQ(control.ErrorMessage().find("ModColor SaveKEW: 5, KelvaneCtl, Cannot write "), 0U)
      << control.ErrorMessage();
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(ColorKeyMembers, MakeTheDefaultKeyAnewEveryTime) {
  ASSERT_NO_FATAL_FAILURE(openAcross());
  control.InitColorKey();
  const std::string saved = contentsOf(own());
  ASSERT_EQ(control.SetVarByName("salt"), 1);
  control.InitColorKey();
  expectBox("Subscript out of range");
  desktop.messages.clear();
  std::filesystem::remove(own());
  control.InitColorKey();
  EXPECT_EQ(ColorKey.nDivision, 10);
  EXPECT_NE(bounds(), kBounds);
  EXPECT_NE(contentsOf(own()).find("name=\"salt\""), std::string::npos);
  EXPECT_NE(contentsOf(own()), saved);
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(ColorKeyMembers, LeaveAKeyAloneInTheRoutineBelowTheMember) {
  ASSERT_NO_FATAL_FAILURE(openAcross());
  const std::string file = write(kew(kTemp), "other.kew");
  for (const int32_t count : {1, -1}) {
    control.NewColorKey();
    control.AddColorKey(5, 6, 7);
    ColorKey.nDivision = count;
    routine(file);
    EXPECT_EQ(ColorKey.nDivision, count);
    EXPECT_EQ(ColorKey.low(1), 5.0F);
    EXPECT_FALSE(control.UseColorKey());
  }
  ColorKey.nDivision = 0;
  routine(file);
  EXPECT_EQ(bounds(), (std::vector<float>{1, 20})) << "any file can be named to it";
  EXPECT_TRUE(control.UseColorKey());
  control.NewColorKey();
  routine(folder.file("missing.kew"));
  EXPECT_EQ(bounds(), kBounds);
  EXPECT_TRUE(ownFileIsThere()) << "the data set's own file takes the key that was made";
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "missing.kew"));
}

// A key that was made, saved, edited outside and loaded shades the section.
TEST_F(ColorKeyMembers, ShadeTheSectionWithTheKeyLoaded) {
  ASSERT_NO_FATAL_FAILURE(openAcross());
  control.InitColorKey();
  std::string document = contentsOf(own());
  const std::size_t first = document.find("<division>");
  document.insert(first, "<division><low>16.5</low><high>16.7</high><color>77</color></division>");
  write(document, "tiny.KEW");
  EXPECT_EQ(control.KewFile(own()), 1);
  EXPECT_EQ(ColorKey.nDivision, 11);
  control.Draw();
  const auto painted = boxes.picSection.of(support::Operation::Kind::Box);
  const auto coloured = std::ranges::count(painted, 77, &support::Operation::colour);
  EXPECT_EQ(coloured, 2) << "the block of 16.59, and the legend's box";
}

}  // namespace
