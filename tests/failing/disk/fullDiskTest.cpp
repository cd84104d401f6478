#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

#include "colorkey/kewFile.h"
#include "failing/disk/Disk.h"
#include "failing/posix/Descriptors.h"
#include "platform/cairo/CairoPictures.h"
#include "unit/control/ControlTest.h"
#include "util/lastError.h"

namespace {

namespace fs = std::filesystem;
using failing::Disk;
using platform::CairoPictures;

class FullDisk : public ControlTest {
 protected:
  // Saves a file with every call of the system failing, one after the other, each with every error
  // that a disk can have: the old file is whole or the new one is, a failure is told in plain
  // words, and nothing is left beside it.
  void withEveryFailure(const std::string& name, const std::function<std::string()>& save) {
    const std::string file = folder.file(name);
    for (const bool replaces : {false, true}) {
      restore(file, replaces);
      ASSERT_EQ(save(), "");
      const std::size_t whole = contentsOf(file).size();
      const int calls = callsOf(file, replaces, save);
      for (const int error : {ENOSPC, EDQUOT, EIO, EROFS, EACCES}) {
        for (int n = 1; n <= calls; ++n) {
          SCOPED_TRACE(testing::Message() << name << ", call " << n << ", " << std::strerror(error));
          restore(file, replaces);
          const std::size_t files = filesBeside();
          const std::ptrdiff_t descriptors = failing::openDescriptors();
          std::string told;
          {
            const Disk disk(n, error);
            told = save();
          }
          EXPECT_NE(told.find(std::string("Cannot write \"") + file + "\": " + std::strerror(error)),
                    std::string::npos)
              << told;
          EXPECT_EQ(contentsOf(file), replaces ? kOld : "");
          EXPECT_EQ(fs::exists(file), replaces);
          EXPECT_EQ(filesBeside(), files);
          EXPECT_EQ(failing::openDescriptors(), descriptors);
          ++failures_;
        }
      }
      restore(file, replaces);
      EXPECT_EQ(save(), "");
      // Some pictures have numbers in them that run on.
      EXPECT_NEAR(static_cast<double>(contentsOf(file).size()), static_cast<double>(whole), 10);
    }
    RecordProperty("failures", failures_);
    EXPECT_GE(failures_, 2 * 5 * 5);
  }

  std::string contentsOf(const std::string& file) const {
    std::ostringstream contents;
    contents << std::ifstream(file, std::ios::binary).rdbuf();
    return contents.str();
  }

 private:
  static constexpr const char* kOld = "<section><variable name=\"salt\"/></section>";

  void restore(const std::string& file, bool replaces) {
    fs::remove(file);
    if (replaces) std::ofstream(file) << kOld;
  }
  int callsOf(const std::string& file, bool replaces, const std::function<std::string()>& save) {
    restore(file, replaces);
    const Disk disk(0, 0);
    save();
    return static_cast<int>(disk.calls().size());
  }
  std::size_t filesBeside() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()));
  }

  int failures_ = 0;
};

TEST_F(FullDisk, TheFileOfKeys) {
  openAlongLatitude();
  for (int i = 0; i < 30; ++i) control.AddColorKey(static_cast<float>(i), 50, 255);
  withEveryFailure("tiny.KEW", [] {
    util::LastError.clear();
    ModColor::SaveKEW();
    return util::LastError;
  });
}

class FullDiskOfPictures : public FullDisk {
 protected:
  void withEveryFailureOf(CairoPictures::Kind kind, const std::string& name,
                          const std::function<void(const CairoPictures&, const std::string&)>& save) {
    CairoPictures pictures(kind);
    control::KelvaneCtl drawn{pictures.pictures(), desktop};
    drawn.Resize(300, 200);
    openAlongLatitude();
    drawn.Draw();
    withEveryFailure(name, [&] {
      try {
        save(pictures, folder.file(name));
        return std::string();
      } catch (const std::runtime_error& failure) {
        return std::string(failure.what());
      }
    });
  }
};

TEST_F(FullDiskOfPictures, Png) {
  withEveryFailureOf(CairoPictures::Kind::Pixels, "a.png",
                     [](const auto& pictures, const auto& file) { pictures.savePng(file); });
}

TEST_F(FullDiskOfPictures, Svg) {
  withEveryFailureOf(CairoPictures::Kind::Vectors, "a.svg",
                     [](const auto& pictures, const auto& file) { pictures.saveSvg(file, "A"); });
}

}  // namespace
