#include "ProfileScene.h"

#include "render/profileView.h"
#include "render/settings.h"
#include "section/sectionPath.h"
#include "util/numberText.h"

namespace render_tests {

using namespace KelvaneMain;
using support::Operation;
using util::generalText;
using Kind = Operation::Kind;

namespace {

std::string describe(const Operation& op) {
  const std::string from = generalText(op.x1) + ' ' + generalText(op.y1);
  const std::string to = generalText(op.x2) + ' ' + generalText(op.y2);
  const std::string colour = op.colour == 0 ? "" : " colour " + generalText(op.colour);
  switch (op.kind) {
    case Kind::Move:
      return "move " + to;
    case Kind::Cls:
      return "cls";
    case Kind::Refresh:
      return "refresh";
    case Kind::Line:
      return "line " + from + ' ' + to + " width " + generalText(op.drawWidth) + colour;
    case Kind::Box:
      return "box " + from + ' ' + to + colour;
    case Kind::Print:
      return "print " + from + colour + (op.font.Bold ? " bold" : "") +
             (op.font.Underline ? " large" : "") + " [" + op.text + "]";
    case Kind::And:
      return "and " + op.text;
  }
  return "unknown";
}

}  // namespace

void ProfileScene::SetUp() {
  HeldSection::SetUp();
  settings.ViewMode = kProfileView;
  points({1, 4, 7});
}

void ProfileScene::points(const std::vector<int32_t>& columns) {
  section.npts = static_cast<int32_t>(columns.size());
  section.point_column.clear();
  section.point_label.clear();
  for (const int32_t column : columns) {
    section.point_column.push(column);
    section.point_label.push("P" + generalText(section.point_column.size()));
  }
}

void ProfileScene::draw() {
  boxes.forget();
  DrawProfileView(pictures);
}

void ProfileScene::resize(int32_t width, int32_t height) {
  for (auto* box : {&boxes.picDateTime, &boxes.picSection, &boxes.picContours, &boxes.Picture1}) {
    box->Move(0, 0, width, height);
  }
}

std::vector<std::string> ProfileScene::script(const support::RecordingPictureBox& box) {
  std::vector<std::string> lines;
  for (const Operation& op : box.operations) lines.push_back(describe(op));
  return lines;
}

std::vector<Operation> ProfileScene::profileLines() const {
  auto lines = boxes.picSection.of(Kind::Line);
  std::erase_if(lines, [](const Operation& line) { return line.drawWidth != 2; });
  return lines;
}

}  // namespace render_tests
