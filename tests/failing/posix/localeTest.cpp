#include <clocale>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "Subprocess.h"
#include "colorkey/kewFile.h"
#include "netcdf/ncf.h"
#include "render/settings.h"
#include "support/sampleSets.h"
#include "unit/control/ControlTest.h"

namespace {

// A host whose C locale has decimal commas, which the control must not take over.
class CommaLocale : public ControlTest {
 protected:
  CommaLocale() {
    const std::string source = folder.file("comma.source");
    std::ofstream(source) << "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \".\"\n"
                             "grouping 3\nEND LC_NUMERIC\n";
    // It warns of everything that is missing, and exits with 1 for that.
    cli_test::run({"/usr/bin/localedef", "--no-archive", "-c", "-f", "UTF-8", "-i", source,
                   folder.file("comma")});
    setenv("LOCPATH", folder.path().c_str(), 1);
  }
  ~CommaLocale() override {
    std::setlocale(LC_ALL, "C");
    unsetenv("LOCPATH");
  }

  static void useCommas() {
    ASSERT_NE(std::setlocale(LC_NUMERIC, "comma"), nullptr);
    char text[20];
    std::snprintf(text, sizeof text, "%.1f", 1.5);
    ASSERT_STREQ(text, "1,5");
  }
  static void usePoints() { std::setlocale(LC_NUMERIC, "C"); }

  // The whole way to a picture and a file of keys; everything that can be read of them. Between
  // two members the host may set another locale.
  template <class Between>
  std::string drawn(const Between& between) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    support::resetState();
    boxes.forget();
    openAlongLatitude();
    between();
    text << ocxNetNc::ncf.NcVars(5).Scale << ' ' << ocxNetNc::ncf.NcVars(5).Offset << '\n';
    control.AddColorKey(0.25F, 10.5F, 255);
    control.AddColorKey(10.5F, 20.75F, 65280);
    control.UseColorKey(true);
    KelvaneMain::settings.ViewStyle = 1;
    control.Draw();
    between();
    control.AdvanceTime(1);
    control.DrawProfile(true);
    control.ReDraw();
    for (const auto* box : {&boxes.picSection, &boxes.picContours, &boxes.picDateTime}) {
      for (const std::string& line : box->texts()) text << line << '\n';
    }
    between();
    ModColor::SaveKEW();
    text << std::ifstream(folder.file("tiny.KEW")).rdbuf() << '\n';
    between();
    text << control.KewFile(folder.file("tiny.KEW")) << ' ' << control.ErrorMessage();
    std::filesystem::remove(folder.file("tiny.KEW"));
    return text.str();
  }
};

TEST_F(CommaLocale, ChangesNothing) {
  const std::string expected = drawn([] {});
  ASSERT_NE(expected.find("10.5"), std::string::npos);
  ASSERT_NO_FATAL_FAILURE(useCommas());
  EXPECT_EQ(drawn([] {}), expected);
}

TEST_F(CommaLocale, ChangesNothingWhenTheHostSetsItInBetween) {
  const std::string expected = drawn([] {});
  bool commas = false;
  EXPECT_EQ(drawn([&] {
              commas = !commas;
              commas ? useCommas() : usePoints();
            }),
            expected);
}

}  // namespace
