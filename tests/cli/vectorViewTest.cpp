#include <cmath>

#include "CliTest.h"
#include "TerminalDesktop.h"
#include "control/KelvaneCtl.h"
#include "platform/cairo/CairoVectorBox.h"
#include "render/settings.h"
#include "support/sampleSets.h"
#include "svgStrokes.h"
#include "util/rounding.h"

// What is drawn as vectors, held against what a control that is set the same asks to be drawn.
namespace cli_test {
namespace {

// Adds up what it is asked to draw.
class CountingBox : public platform::CairoVectorBox {
 public:
  using CairoVectorBox::CairoVectorBox;

  void Cls() override {
    strokes = {};
    CairoVectorBox::Cls();
  }
  void Line(float x1, float y1, float x2, float y2, platform::Colour colour) override {
    strokes.lines[colour] += util::asDouble(std::hypot(x2 - x1, y2 - y1));
    CairoVectorBox::Line(x1, y1, x2, y2, colour);
  }
  void Print(std::string_view text) override {
    strokes.letters += text.size();
    CairoVectorBox::Print(text);
  }

  Strokes strokes;
};

// A control that draws on counting boxes lettered as vectors are.
class Counted {
 public:
  Counted(const std::string& dataSet, bool profile, bool single, bool contours) {
    support::resetState();
    control_.Resize(400, 300);
    EXPECT_EQ(control_.NcFile(dataSet), 1);
    control_.NewSection();
    control_.AddSection(350.5F, -0.9F);
    control_.AddSection(358, 0.4F);
    EXPECT_EQ(control_.EndSection(), 1);
    control_.DrawProfile(profile);
    KelvaneMain::settings.ProfileStyle = single ? 1 : 0;
    KelvaneMain::settings.ViewStyle = contours ? 1 : 0;
    control_.SetCurrentTime(1);
  }

  Strokes strokes() const {
    Strokes sum;
    for (const CountingBox* box : {&Picture1_, &picDateTime_, &picSection_, &picContours_}) {
      for (const auto& [colour, length] : box->strokes.lines) sum.lines[colour] += length;
      sum.letters += box->strokes.letters;
    }
    return sum;
  }
  Strokes contours() const { return picContours_.strokes; }

 private:
  platform::Lettering lettering_{platform::Lettering::Grid::None};
  CountingBox Picture1_{lettering_}, picDateTime_{lettering_}, picSection_{lettering_},
      picContours_{lettering_};
  cli::TerminalDesktop desktop_;
  control::KelvaneCtl control_{{Picture1_, picDateTime_, picSection_, picContours_}, desktop_};
};

class VectorView : public CliTest {
 protected:
  Strokes drawn(std::vector<std::string> options) const {
    options.insert(options.begin(), {"draw", "small.nc", "--path", kSmallPath, "--size", "400x300",
                                     "-o", "view.svg"});
    const Result result = kelvane(options);
    EXPECT_EQ(result.status, 0) << result.err;
    return strokesOf(contents("view.svg"));
  }

  static void expectSame(const Strokes& drawn, const Strokes& asked) {
    EXPECT_EQ(drawn.letters, asked.letters);
    EXPECT_EQ(drawn.lines.size(), asked.lines.size());
    for (const auto& [colour, length] : asked.lines) {
      ASSERT_TRUE(drawn.lines.contains(colour)) << colour;
      // A file has its places in steps of 1/256 pixel.
      EXPECT_NEAR(drawn.lines.at(colour), length, 0.002 * length) << colour;
    }
  }
};

TEST_F(VectorView, HasEveryLineAndLetter) {
  struct Case {
    std::vector<std::string> options;
    bool profile, single, contours;
  };
  const Case cases[] = {{{}, false, false, false},
                        {{"--contours"}, false, false, true},
                        {{"--profile"}, true, false, false},
                        {{"--profile", "--single"}, true, true, false}};
  for (const auto& [options, profile, single, contours] : cases) {
    SCOPED_TRACE(options.empty() ? "" : options.back());
    const Counted asked(file("small.nc"), profile, single, contours);
    EXPECT_GT(asked.strokes().letters, 20U);
    EXPECT_FALSE(asked.strokes().lines.empty());
    EXPECT_EQ(asked.contours().lines.empty(), !contours);
    EXPECT_EQ(asked.contours().letters == 0, !contours);
    expectSame(drawn(options), asked.strokes());
  }
}

TEST_F(VectorView, ASharedGraphHasAColourForEachProfile) {
  const platform::Colour first = platform::basicPalette(9), second = platform::basicPalette(10);
  const Strokes separate = drawn({"--profile"}), shared = drawn({"--profile", "--single"});
  EXPECT_TRUE(separate.lines.contains(first));
  EXPECT_FALSE(separate.lines.contains(second));
  EXPECT_TRUE(shared.lines.contains(first));
  EXPECT_TRUE(shared.lines.contains(second));
}

}  // namespace
}  // namespace cli_test
