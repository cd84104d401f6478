#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "netcdf/ncf.h"
#include "section/sectionPath.h"
#include "support/RecordingDesktop.h"
#include "support/TempFolder.h"

// A test that starts from the state of a freshly loaded library.
class SectionTest : public testing::Test {
 protected:
  SectionTest();
  ~SectionTest() override;

  // Makes ncf a regular grid without a file; the first point and the spacing of each axis.
  static void useGrid(double lon, double dlon, int32_t nlon, double lat, double dlat,
                      int32_t nlat);
  static void useGridA() { useGrid(0, 1, 11, -5, 1, 11); }
  static void useGridB() { useGrid(0, 0.1, 11, 0, 0.1, 11); }

  static void usePoints(const std::vector<KelvaneMain::SectionPoint>& points);
  static std::vector<KelvaneMain::Cell> columns();

  // Opens a data set as far as a section read needs it, item 1 shown.
  static void open(const std::string& path);
  // Opens it and builds the section through these points, which must succeed.
  static void openAlong(const std::string& path,
                        const std::vector<KelvaneMain::SectionPoint>& points);

  support::TempFolder folder;
  support::RecordingDesktop desktop;
  platform::DesktopScope scope{desktop};
};

namespace KelvaneMain {
void PrintTo(const Cell& cell, std::ostream* out);
}
