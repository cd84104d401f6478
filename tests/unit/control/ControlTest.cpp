#include "unit/control/ControlTest.h"

#include "support/sampleSets.h"

ControlTest::ControlTest() { support::resetState(); }
ControlTest::~ControlTest() { support::resetState(); }

std::string ControlTest::tinySet(const std::string& name) const {
  const std::string path = folder.file(name);
  support::makeTinySet(path);
  return path;
}

int16_t ControlTest::sectionThrough(const std::vector<KelvaneMain::SectionPoint>& points) {
  control.NewSection();
  for (const KelvaneMain::SectionPoint& point : points) control.AddSection(point.x, point.y);
  return control.EndSection();
}

void ControlTest::openAlongLatitude() {
  ASSERT_EQ(control.NcFile(tinySet()), 1) << control.ErrorMessage();
  ASSERT_EQ(sectionThrough({{350, 0}, {358, 0}}), 1) << control.ErrorMessage();
}
