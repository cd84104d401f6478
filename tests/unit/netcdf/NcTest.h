#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "netcdf/NetCDF.h"
#include "netcdf/catalogue.h"
#include "netcdf/ncf.h"
#include "netcdf/status.h"
#include "platform/Desktop.h"
#include "support/NcMaker.h"
#include "support/RecordingDesktop.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"
#include "util/lastError.h"

// A test with a folder of its own for data sets, all module state fresh, and every message box
// recorded.
class NcTest : public ::testing::Test {
 protected:
  NcTest() { support::resetState(); }
  ~NcTest() override { support::resetState(); }

  std::string file(const std::string& name = "set.nc") const { return folder.file(name); }

  // Catalogues a data set that must open.
  void open(const std::string& path) {
    ASSERT_EQ(ocxNetNc::OpenCatalogue(path, 0), 1) << util::LastError;
  }

  // The failure of a library call: its text, the data set closed, one box that says the same.
  void expectLibraryFailure(const std::string& text) const {
    EXPECT_EQ(util::LastError, text);
    EXPECT_FALSE(ocxNetNc::isOpen());
    const std::vector<support::RecordingDesktop::Message> box = {
        {text, "NetCDF Error", platform::MessageIcon::Critical}};
    EXPECT_EQ(desktop.messages, box);
  }

  // The failure of anything else: its text, no box.
  void expectQuietFailure(const std::string& text) const {
    EXPECT_EQ(util::LastError, text);
    EXPECT_TRUE(desktop.messages.empty());
  }

  support::TempFolder folder;
  support::RecordingDesktop desktop;

 private:
  platform::DesktopScope scope_{desktop};
};

// A library call that fails, whatever its arguments.
inline constexpr auto kRefusal = [](auto...) { return NC_EHDFERR; };

// Counts what reaches the library's nc_close.
struct CloseCount {
  CloseCount() {
    calls = 0;
    NetCDF::library.nc_close = [](int id) {
      ++calls;
      return ::nc_close(id);
    };
  }
  static inline int calls = 0;
};
