#include "HeldSection.h"
#include "netcdf/title.h"
#include "render/drawVSection.h"
#include "util/RuntimeError.h"

namespace {

using support::Operation;
using Texts = std::vector<std::string>;

using TitlesTest = render_tests::HeldSection;

TEST_F(TitlesTest, StandAtTheirPlaces) {
  KelvaneMain::DrawTitles(boxes.picDateTime, boxes.picSection);
  EXPECT_EQ(boxes.picDateTime.texts(), (Texts{"Date/Time: 1990-01-02 12:00:00"}));
  EXPECT_EQ(boxes.picSection.texts(),
            (Texts{"Data Set: tiny.nc", "little run", "potential temperature [degC]"}));
  struct Row {
    Operation print;
    float x, y;
  };
  const Row rows[] = {
      {boxes.picDateTime.printOf("Date/Time: 1990-01-02 12:00:00"), 6, 6.5F},
      {boxes.picSection.printOf("Data Set: tiny.nc"), 492, 6.5F},
      {boxes.picSection.printOf("little run"), 270, 19.5F},
      // 28 characters 9 wide; one and a half lines of 19.5 above the lower edge
      {boxes.picSection.printOf("potential temperature [degC]"), 174, 370.75F},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(row.print.x1, row.x) << row.print.text;
    EXPECT_EQ(row.print.y1, row.y) << row.print.text;
  }
}

TEST_F(TitlesTest, TheLastLineIsLargerAndUnderlinedAndTheFontIsPutBack) {
  boxes.picSection.Font.Size = 8.25F;
  KelvaneMain::DrawTitles(boxes.picDateTime, boxes.picSection);
  const Operation title = boxes.picSection.printOf("potential temperature [degC]");
  EXPECT_EQ(title.font.Size, 12.0F);  // one and a half times the whole points
  EXPECT_TRUE(title.font.Underline);
  EXPECT_FALSE(title.font.Italic);
  EXPECT_EQ(boxes.picSection.Font.Size, 8.25F);
  EXPECT_FALSE(boxes.picSection.Font.Underline);
  EXPECT_FALSE(boxes.picSection.printOf("little run").font.Underline);
}

TEST_F(TitlesTest, EmptyLinesPrintNothing) {
  ocxNetNc::TitleLines.assign(4);
  KelvaneMain::DrawTitles(boxes.picDateTime, boxes.picSection);
  EXPECT_EQ(boxes.picDateTime.texts(), (Texts{"Date/Time: "}));
  EXPECT_EQ(boxes.picSection.texts(), (Texts{"Data Set: ", "", ""}));
}

TEST_F(TitlesTest, AMissingLineIsASubscriptError) {
  ocxNetNc::TitleLines.assign(3);
  EXPECT_THROW(KelvaneMain::DrawTitles(boxes.picDateTime, boxes.picSection), util::RuntimeError);
}

}  // namespace
