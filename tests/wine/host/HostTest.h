#pragma once

#include <gtest/gtest.h>

#include <optional>

#include "Dispatch.h"
#include "HostProgram.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"

namespace winetest {

// The program with nothing remembered, and a small data set with two steps and two items.
class HostTest : public testing::Test {
 protected:
  HostTest() {
    haveMenuHeight();
    forget();
    support::makeTinySet(folder_.file("tiny.nc"));
  }
  ~HostTest() override {
    program_.reset();
    forget();
  }

  // Where there is no display, Wine sets up a user whose menus fill the window, and more.
  static void haveMenuHeight() {
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    if (metrics.iMenuHeight < 200) return;
    metrics.iMenuHeight = metrics.iCaptionHeight;
    SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics, SPIF_UPDATEINIFILE);
  }
  static void forget() { RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Kelvane\\KelvaneHost"); }
  std::wstring file(const std::string& name) const { return host::wide(folder_.file(name)); }

  HostProgram& start(const std::wstring& dataSet = L"") { return program_.emplace(dataSet); }
  // With the data set drawn along a path.
  HostProgram& startDrawn() {
    start(file("tiny.nc"));
    program_->enterPath({{L"354.5", L"-1"}, {L"354.5", L"0.4"}});
    program_->untilStep("1");
    return *program_;
  }

  support::TempFolder folder_;
  std::optional<HostProgram> program_;
};

}  // namespace winetest
