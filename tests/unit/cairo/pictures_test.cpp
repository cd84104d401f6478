#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>

#include "platform/cairo/CairoPictures.h"
#include "platform/cairo/CairoPixelBox.h"
#include "platform/cairo/CairoVectorBox.h"
#include "platform/cairo/cairoHandles.h"
#include "support/TempFolder.h"

namespace {

using platform::CairoPictures;
using platform::rgb;

std::string contentsOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

// A section in small: cells, a tick, letters, and a line on another surface.
void drawSomething(platform::Pictures pictures) {
  for (auto* box :
       {&pictures.picDateTime, &pictures.picSection, &pictures.picContours, &pictures.Picture1}) {
    box->Move(0, 0, 120, 80);
  }
  pictures.picSection.Box(10, 10, 40.3F, 30.6F, rgb(245, 0, 0));
  pictures.picSection.Box(40.3F, 10, 70, 30.6F, rgb(0, 245, 0));
  pictures.picSection.Line(10, 60, 10, 66, 0);
  pictures.picDateTime.CurrentX = 10;
  pictures.picDateTime.CurrentY = 40;
  pictures.picDateTime.Print("Date & <time>");
  pictures.picContours.Line(12, 12, 60, 28, 0);
  pictures.picSection.AndFrom(pictures.picContours);
  pictures.picSection.AndFrom(pictures.picDateTime);
  pictures.Picture1.Cls();
  pictures.Picture1.AndFrom(pictures.picSection);
}

class PicturesTest : public testing::Test {
 protected:
  support::TempFolder folder;
};

TEST_F(PicturesTest, APngHoldsThePixelsOfTheVisiblePicture) {
  CairoPictures pictures(CairoPictures::Kind::Pixels);
  drawSomething(pictures.pictures());
  const std::string path = folder.file("a.png");
  pictures.savePng(path);
  const platform::CairoSurface read(cairo_image_surface_create_from_png(path.c_str()));
  ASSERT_EQ(cairo_surface_status(read.get()), CAIRO_STATUS_SUCCESS);
  ASSERT_EQ(cairo_image_surface_get_width(read.get()), 120);
  ASSERT_EQ(cairo_image_surface_get_height(read.get()), 80);
  const unsigned char* bytes = cairo_image_surface_get_data(read.get());
  const auto at = [&](int x, int y) {
    const unsigned char* pixel = bytes + cairo_image_surface_get_stride(read.get()) * y + 4 * x;
    return rgb(pixel[2], pixel[1], pixel[0]);
  };
  EXPECT_EQ(at(0, 0), rgb(255, 255, 255));
  EXPECT_EQ(at(10, 30), rgb(245, 0, 0));
  EXPECT_EQ(at(70, 10), rgb(0, 245, 0));
  EXPECT_EQ(at(10, 60), 0);
}

TEST_F(PicturesTest, SvgAndPdfAreVectorsWithATitle) {
  CairoPictures pictures(CairoPictures::Kind::Vectors);
  drawSomething(pictures.pictures());
  pictures.saveSvg(folder.file("a.svg"), "Section <1> & \"2\"");
  const std::string svg = contentsOf(folder.file("a.svg"));
  EXPECT_TRUE(contains(svg, "width=\"120px\""));
  EXPECT_TRUE(contains(svg, "height=\"80px\""));
  EXPECT_TRUE(contains(svg, "<title>Section &lt;1&gt; &amp; \"2\"</title>"));
  EXPECT_FALSE(contains(svg, "<image"));
  EXPECT_TRUE(contains(svg, "</svg>"));
  pictures.savePdf(folder.file("a.pdf"), "Section 1");
  const std::string pdf = contentsOf(folder.file("a.pdf"));
  EXPECT_EQ(pdf.rfind("%PDF-", 0), 0U);
  EXPECT_TRUE(contains(pdf, "/Title (Section 1)"));
  EXPECT_TRUE(contains(pdf, "90 60"));  // 120 x 80 pixels in points
  EXPECT_FALSE(contains(pdf, "/Subtype /Image"));
  EXPECT_TRUE(contains(pdf, "%%EOF"));
}

TEST_F(PicturesTest, VectorsShowTheSamePictureAsPixels) {
  CairoPictures pixels(CairoPictures::Kind::Pixels), vectors(CairoPictures::Kind::Vectors);
  drawSomething(pixels.pictures());
  drawSomething(vectors.pictures());
  const auto& pixelBox = dynamic_cast<platform::CairoPixelBox&>(pixels.pictures().Picture1);
  const auto& vectorBox = dynamic_cast<platform::CairoVectorBox&>(vectors.pictures().Picture1);
  const platform::CairoSurface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, 120, 80));
  const platform::CairoContext context(cairo_create(surface.get()));
  vectorBox.replay(context.get());
  ASSERT_EQ(cairo_status(context.get()), CAIRO_STATUS_SUCCESS);
  cairo_surface_flush(surface.get());
  const unsigned char* bytes = cairo_image_surface_get_data(surface.get());
  int different = 0;
  for (int y = 0; y < 80; ++y) {
    for (int x = 0; x < 120; ++x) {
      const unsigned char* pixel =
          bytes + cairo_image_surface_get_stride(surface.get()) * y + 4 * x;
      const platform::Colour other = pixelBox.pixel(x, y);
      for (int part = 0; part < 3; ++part) {
        if (std::abs(pixel[2 - part] - (other >> 8 * part & 0xFF)) > 128) {
          ++different;
          break;
        }
      }
    }
  }
  // Soft edges of letters and of boxes between pixels differ, nothing else does.
  EXPECT_LT(different, 100);
}

TEST_F(PicturesTest, NeighbouringVectorCellsOfOneColourAreOneBox) {
  CairoPictures vectors(CairoPictures::Kind::Vectors);
  platform::PictureBox& box = vectors.pictures().Picture1;
  box.Move(0, 0, 120, 80);
  for (int column = 0; column < 100; ++column) {
    const auto x = static_cast<float>(column);
    box.Box(x, 10, x + 1, 20, 255);
  }
  vectors.saveSvg(folder.file("one.svg"), "");
  const std::string one = contentsOf(folder.file("one.svg"));
  box.Cls();
  for (int column = 0; column < 100; ++column) {
    const auto x = static_cast<float>(column);
    box.Box(x, 10, x + 1, 20, column);
  }
  vectors.saveSvg(folder.file("many.svg"), "");
  EXPECT_GT(contentsOf(folder.file("many.svg")).size(), one.size() + 5000);
}

TEST_F(PicturesTest, AnEmptyPictureIsRefusedWithAText) {
  CairoPictures pixels(CairoPictures::Kind::Pixels), vectors(CairoPictures::Kind::Vectors);
  EXPECT_THROW(pixels.savePng(folder.file("a.png")), std::runtime_error);
  EXPECT_THROW(vectors.saveSvg(folder.file("a.svg"), ""), std::runtime_error);
  EXPECT_THROW(vectors.savePdf(folder.file("a.pdf"), ""), std::runtime_error);
  pixels.pictures().Picture1.Move(0, 0, 32767, 32767);
  try {
    pixels.savePng(folder.file("a.png"));
    FAIL() << "a picture without pixels was saved";
  } catch (const std::runtime_error& error) {
    EXPECT_TRUE(contains(error.what(), "empty or too large")) << error.what();
  }
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(PicturesTest, AKindIsSavedAsItsOwnFormatsOnly) {
  CairoPictures pixels(CairoPictures::Kind::Pixels), vectors(CairoPictures::Kind::Vectors);
  drawSomething(pixels.pictures());
  drawSomething(vectors.pictures());
  EXPECT_THROW(vectors.savePng(folder.file("a.png")), std::logic_error);
  EXPECT_THROW(pixels.saveSvg(folder.file("a.svg"), ""), std::logic_error);
  EXPECT_THROW(pixels.savePdf(folder.file("a.pdf"), ""), std::logic_error);
}

TEST_F(PicturesTest, StrangeInkDoesNotSpoilVectors) {
  CairoPictures vectors(CairoPictures::Kind::Vectors);
  platform::PictureBox& box = vectors.pictures().Picture1;
  box.Move(0, 0, 120, 80);
  const float nan = std::numeric_limits<float>::quiet_NaN();
  box.Box(nan, 0, 5, 5, 255);
  box.Box(-1e30F, -1e30F, 1e30F, 1e30F, -1);
  box.Line(0, nan, 5, 5, 255);
  box.Line(-1e30F, 5, 1e30F, 9, 255);
  box.CurrentX = nan;
  box.Print("nowhere");
  box.CurrentX = 5;
  box.Print(std::string("a\0\xFF", 3));
  box.Font.Size = nan;
  box.Print("x");
  vectors.saveSvg(folder.file("a.svg"), std::string("t\0\x01\xFF", 4));
  vectors.savePdf(folder.file("a.pdf"), std::string("t\0\x01\xFF", 4));
  EXPECT_TRUE(contains(contentsOf(folder.file("a.svg")), "</svg>"));
  EXPECT_TRUE(contains(contentsOf(folder.file("a.pdf")), "%%EOF"));
}

TEST_F(PicturesTest, LinesThatGoOnAreOneStrokeOfAVector) {
  struct Row {
    float x;  // where the second line starts
    platform::Colour colour;
    int32_t width;
    bool between;  // something else is drawn between the two
    std::size_t strokes;
  };
  const Row rows[] = {{20, 0, 1, false, 1},
                      {21, 0, 1, false, 2},
                      {20, 255, 1, false, 2},
                      {20, 0, 3, false, 2},
                      {20, 0, 1, true, 2}};
  for (const Row& row : rows) {
    CairoPictures pictures(CairoPictures::Kind::Vectors);
    platform::PictureBox& picture = pictures.pictures().Picture1;
    picture.Move(0, 0, 120, 80);
    picture.Line(5, 5, 20, 9, 0);
    if (row.between) picture.Box(1, 1, 2, 2, 0);
    picture.DrawWidth = row.width;
    picture.Line(row.x, 9, 40, 30, row.colour);
    pictures.saveSvg(folder.file("a.svg"), "");
    const std::string svg = contentsOf(folder.file("a.svg"));
    std::size_t strokes = 0;
    for (auto at = svg.find("stroke-linecap"); at != std::string::npos;
         at = svg.find("stroke-linecap", at + 1)) {
      ++strokes;
    }
    EXPECT_EQ(strokes, row.strokes) << &row - rows;
  }
}

}  // namespace
