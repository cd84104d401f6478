#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "colorkey/kewListing.h"
#include "platform/Desktop.h"
#include "support/RecordingDesktop.h"
#include "support/TempFolder.h"

// KEW files in a folder of the test, with an item temp shown and no error text so far.
class KewTest : public testing::Test {
 protected:
  KewTest();
  ~KewTest() override;

  // Makes a file of exactly these bytes and returns its name.
  std::string write(std::string_view bytes, const std::string& name = "a.kew") const;
  static std::string contentsOf(const std::string& fileName);
  // What stands in the test's folder.
  std::vector<std::string> folderContents() const;

  // Shows an item of this name alone.
  static void show(const std::string& variable);
  static void setKey(const std::vector<ModColor::KewDivision>& divisions);
  // What the lists of the key hold, whatever its count says.
  static std::vector<ModColor::KewDivision> lists();

  support::TempFolder folder;
  support::RecordingDesktop desktop;
  platform::DesktopScope scope{desktop};
};

// <division> with the three texts.
std::string division(std::string_view low, std::string_view high, std::string_view color);
// <section> with one variable temp that has a division 1 to 2 in colour 255.
std::string smallKew();
