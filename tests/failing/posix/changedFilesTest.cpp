#include <filesystem>
#include <fstream>
#include <functional>
#include <utility>

#include "failing/posix/Descriptors.h"
#include "netcdf/NetCDF.h"
#include "support/NcMaker.h"
#include "support/sampleSets.h"
#include "unit/control/ControlTest.h"
#include "util/lastError.h"

namespace {

namespace fs = std::filesystem;

// What another program does to the file whose name it is given.
struct Change {
  const char* name;
  std::function<void(const std::string&)> make;
};

void cutTo(const std::string& file, double share) {
  fs::resize_file(file, static_cast<std::uintmax_t>(static_cast<double>(fs::file_size(file)) * share));
}

// A set of the same names with fewer dimensions and other lengths.
void makeOtherShape(const std::string& file) {
  support::NcMaker nc(file);
  const int depth = nc.dim("depth", 2), lat = nc.dim("lat", 2), lon = nc.dim("lon", 2);
  for (const char* name : {"time", "depth", "lat", "lon", "temp"}) {
    nc.var(name, NC_FLOAT, {depth, lat, lon});
  }
  nc.close();
}

const Change kChanges[] = {
    {"Removed", [](const std::string& file) { fs::remove(file); }},
    {"Emptied", [](const std::string& file) { fs::resize_file(file, 0); }},
    {"CutInItsHeader", [](const std::string& file) { cutTo(file, 0.1); }},
    {"CutInItsData", [](const std::string& file) { cutTo(file, 0.9); }},
    {"ReplacedByAnotherShape", [](const std::string& file) { makeOtherShape(file); }},
    {"ReplacedByAText", [](const std::string& file) { std::ofstream(file) << "no data"; }},
    {"ReplacedByAFolder",
     [](const std::string& file) {
       fs::remove(file);
       fs::create_directory(file);
     }},
};

class Changed : public ControlTest,
                public testing::WithParamInterface<std::tuple<Change, bool>> {
 protected:
  Changed() : descriptors_(failing::openDescriptors()) {}
  ~Changed() override {
    NetCDF::beneath = NetCDF::bareLibrary();
    EXPECT_EQ(failing::openDescriptors(), descriptors_);
  }

  // A set that is drawn, classic or netCDF-4.
  void drawSet() {
    file_ = folder.file("set.nc");
    support::makeTinySet(file_, std::get<1>(GetParam()) ? NC_NETCDF4 : 0);
    fs::copy_file(file_, file_ + ".kept");
    ASSERT_EQ(control.NcFile(file_), 1) << control.ErrorMessage();
    ASSERT_EQ(sectionThrough({{350, 0}, {358, 0}}), 1);
    control.Draw();
    cells_ = cellsDrawn();
    ASSERT_GT(cells_, 0U);
    util::LastError.clear();
  }
  void change() { std::get<0>(GetParam()).make(file_); }
  void putBack() {
    fs::remove_all(file_);
    fs::copy_file(file_ + ".kept", file_);
  }
  // Once the file is back everything works.
  void expectReturn() {
    EXPECT_EQ(control.NcFile(folder.file("none.nc")), -1);
    EXPECT_NE(control.ErrorMessage(), "");
    putBack();
    ASSERT_EQ(control.NcFile(file_), 1) << control.ErrorMessage();
    ASSERT_EQ(sectionThrough({{350, 0}, {358, 0}}), 1);
    control.Draw();
    EXPECT_EQ(cellsDrawn(), cells_);
  }
  std::size_t cellsDrawn() {
    const std::size_t cells = boxes.picSection.of(support::Operation::Kind::Box).size();
    boxes.forget();
    return cells;
  }

  std::string file_;
  std::size_t cells_ = 0;

 private:
  std::ptrdiff_t descriptors_;
};

TEST_P(Changed, BetweenTwoReads) {
  ASSERT_NO_FATAL_FAILURE(drawSet());
  change();
  control.SetCurrentTime(2);
  EXPECT_NE(control.ErrorMessage(), "");
  // A picture without the cells that were not read.
  EXPECT_LT(cellsDrawn(), cells_);
  expectReturn();
}

TEST_P(Changed, BeforeItIsOpenedAgain) {
  ASSERT_NO_FATAL_FAILURE(drawSet());
  change();
  EXPECT_EQ(control.NcFile(file_), -1);
  control.ReDraw();
  EXPECT_EQ(cellsDrawn(), cells_) << "what was read is still there";
  expectReturn();
}

std::function<void()> beforeRead;

// While the file is open: between the look at it and the reading of its values. What the system has
// in its memory is still read; what is read of it may not crash.
TEST_P(Changed, WhileItIsOpen) {
  ASSERT_NO_FATAL_FAILURE(drawSet());
  beforeRead = [this] { change(); };
  NetCDF::beneath.nc_get_vars_short = [](int set, int variable, const std::size_t* start,
                                         const std::size_t* count, const std::ptrdiff_t* stride,
                                         short* values) {
    if (beforeRead) std::exchange(beforeRead, nullptr)();
    return nc_get_vars_short(set, variable, start, count, stride, values);
  };
  control.SetCurrentTime(2);
  NetCDF::beneath = NetCDF::bareLibrary();
  ASSERT_FALSE(beforeRead) << "nothing was read";
  EXPECT_TRUE(cellsDrawn() == cells_ || control.ErrorMessage() != "");
  putBack();
  ASSERT_EQ(control.NcFile(file_), 1) << control.ErrorMessage();
  ASSERT_EQ(sectionThrough({{350, 0}, {358, 0}}), 1);
  control.Draw();
  EXPECT_EQ(cellsDrawn(), cells_);
}

INSTANTIATE_TEST_SUITE_P(, Changed,
                         testing::Combine(testing::ValuesIn(kChanges), testing::Bool()),
                         [](const auto& tested) {
                           return std::string(std::get<0>(tested.param).name) +
                                  (std::get<1>(tested.param) ? "NetCDF4" : "Classic");
                         });

}  // namespace
