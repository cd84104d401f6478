#include "unit/colorkey/KewTest.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "colorkey/colorKey.h"
#include "section/drawItems.h"
#include "support/sampleSets.h"

using ModColor::ColorKey;
using ModColor::KewDivision;

KewTest::KewTest() {
  support::resetState();
  show("temp");
}

KewTest::~KewTest() { support::resetState(); }

std::string KewTest::write(std::string_view bytes, const std::string& name) const {
  std::ofstream file(folder.path() / name, std::ios::binary);
  file << bytes;
  if (!file.flush()) throw std::runtime_error("cannot write " + name);
  return folder.file(name);
}

std::string KewTest::contentsOf(const std::string& fileName) {
  std::ifstream file(fileName, std::ios::binary);
  std::ostringstream contents;
  contents << file.rdbuf();
  return contents.str();
}

std::vector<std::string> KewTest::folderContents() const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
    names.push_back(entry.path().filename().string());
  }
  std::ranges::sort(names);
  return names;
}

void KewTest::show(const std::string& variable) {
  KelvaneMain::DrawItem item;
  item.name = variable;
  KelvaneMain::DrawItems = {item};
  KelvaneMain::Item_shown = 1;
}

void KewTest::setKey(const std::vector<KewDivision>& divisions) {
  ModColor::NewColorKey();
  for (const KewDivision& one : divisions) ModColor::AddColorKey(one.low, one.high, one.color);
}

std::vector<KewDivision> KewTest::lists() {
  EXPECT_EQ(ColorKey.low.size(), ColorKey.high.size());
  EXPECT_EQ(ColorKey.low.size(), ColorKey.color.size());
  std::vector<KewDivision> held;
  for (int32_t i = 1; i <= ColorKey.color.size(); ++i) {
    held.push_back({ColorKey.low(i), ColorKey.high(i), ColorKey.color(i)});
  }
  return held;
}

std::string division(std::string_view low, std::string_view high, std::string_view color) {
  std::string text = "<division><low>";
  text.append(low).append("</low><high>").append(high).append("</high><color>");
  return text.append(color).append("</color></division>");
}

std::string smallKew() {
  return "<section><variable name=\"temp\">" + division("1", "2", "255") + "</variable></section>";
}
