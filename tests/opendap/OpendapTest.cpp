#include "OpendapTest.h"

#include <filesystem>

#include "netcdf/title.h"
#include "support/sampleSets.h"

namespace opendap_test {
namespace {

// A folder for the data of one test.
std::string newFolder() {
  static int number = 0;
  const std::string folder = Place::here().own("data" + std::to_string(++number));
  std::filesystem::create_directory(folder);
  support::makeTinySet(folder + "/tiny.nc");
  return folder;
}

}  // namespace

OpendapTest::OpendapTest()
    : folder_(newFolder()),
      filesBefore_(Place::here().files()),
      server(folder_, folder_ + ".log") {
  support::resetState();
  Place::here().takeErrors();
}

OpendapTest::~OpendapTest() { support::resetState(); }

void OpendapTest::TearDown() {
  EXPECT_EQ(Place::here().takeErrors().substr(0, 300), "");
  EXPECT_EQ(Place::here().files(), filesBefore_);
}

std::string OpendapTest::shownTexts() const {
  std::string all = ctl.ErrorMessage();
  for (const auto& message : desktop.messages) all += "\n" + message.caption + "\n" + message.text;
  for (const std::string& line : ocxNetNc::TitleLines) all += "\n" + line;
  for (const std::string& text : printed()) all += "\n" + text;
  return all;
}

std::string OpendapTest::draw(const std::string& name, const std::string& item,
                              const std::vector<std::pair<float, float>>& path) {
  if (ctl.NcFile(name) != 1) return "NcFile: " + ctl.ErrorMessage();
  ctl.NewSection();
  for (const auto& [lon, lat] : path) ctl.AddSection(lon, lat);
  if (ctl.EndSection() != 1) return "EndSection: " + ctl.ErrorMessage();
  if (ctl.SetVarByName(item) != 1) return "SetVarByName: " + ctl.ErrorMessage();
  const std::string before = ctl.ErrorMessage();
  ctl.Draw();
  return ctl.ErrorMessage() == before ? "" : "Draw: " + ctl.ErrorMessage();
}

std::string OpendapTest::drawTiny(const std::string& name) { return draw(name, "temp", kTinyRow); }

std::vector<std::string> OpendapTest::printed() const {
  std::vector<std::string> texts;
  for (const auto* box : {&boxes.picDateTime, &boxes.picSection, &boxes.Picture1}) {
    for (const std::string& text : box->texts()) texts.push_back(text);
  }
  return texts;
}

int OpendapTest::cells() const {
  return static_cast<int>(boxes.picSection.of(support::Operation::Kind::Box).size());
}

void expectSamePicture(const std::vector<support::Operation>& drawn,
                       const std::vector<support::Operation>& expected) {
  ASSERT_EQ(drawn.size(), expected.size());
  for (std::size_t i = 0; i < drawn.size(); ++i) {
    const support::Operation &one = drawn[i], &other = expected[i];
    EXPECT_EQ(one.kind, other.kind) << i;
    EXPECT_EQ(std::tie(one.x1, one.y1, one.x2, one.y2, one.colour, one.text, one.drawWidth),
              std::tie(other.x1, other.y1, other.x2, other.y2, other.colour, other.text,
                       other.drawWidth))
        << i;
  }
}

}  // namespace opendap_test
