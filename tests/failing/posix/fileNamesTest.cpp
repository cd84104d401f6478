#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "colorkey/kewFile.h"
#include "failing/posix/Descriptors.h"
#include "support/sampleSets.h"
#include "unit/control/ControlTest.h"
#include "util/lastError.h"

namespace {

namespace fs = std::filesystem;

class Names : public ControlTest {
 protected:
  Names() { before_ = failing::openDescriptors(); }
  ~Names() override { EXPECT_EQ(failing::openDescriptors(), before_); }

  // The name stands for nothing that could be opened: that is said, at once, and the picture of
  // what was open before can be drawn again.
  void expectRefused(const std::string& name) {
    SCOPED_TRACE(name.substr(0, 60));
    openAlongLatitude();
    control.Draw();
    const std::size_t cells = cellsDrawn();
    EXPECT_EQ(control.KewFile(name), -1);
    util::LastError.clear();
    EXPECT_EQ(control.NcFile(name), -1);
    EXPECT_NE(control.ErrorMessage(), "");
    control.ReDraw();
    EXPECT_EQ(cellsDrawn(), cells);
    EXPECT_EQ(control.NcFile(tinySet()), 1);
  }
  void expectOpened(const std::string& name) {
    SCOPED_TRACE(name.substr(0, 60));
    fs::copy_file(tinySet("made.nc"), name);
    EXPECT_EQ(control.NcFile(name), 1) << control.ErrorMessage();
    EXPECT_EQ(sectionThrough({{350, 0}, {358, 0}}), 1);
    control.Draw();
    EXPECT_GT(cellsDrawn(), 0U);
    control.InitColorKey();
    EXPECT_EQ(control.KewFile(ModColor::ownKewFile()), 1) << control.ErrorMessage();
  }
  std::size_t cellsDrawn() {
    const std::size_t cells = boxes.picSection.of(support::Operation::Kind::Box).size();
    boxes.forget();
    return cells;
  }

 private:
  std::ptrdiff_t before_ = 0;
};

TEST_F(Names, OfNothing) {
  for (const std::string& name :
       {std::string(), std::string("."), std::string(".."), std::string("/"), std::string(" "),
        std::string("*"), folder.path().string(), folder.path().string() + "/",
        folder.file("missing.nc"), folder.file("missing/file.nc"), tinySet() + "/", tinySet() + " ",
        tinySet() + ".", std::string("\xFF\xFE"), std::string("CON"), std::string("a\nb")}) {
    expectRefused(name);
  }
}

TEST_F(Names, LongerThanTheSystemTakes) {
  expectRefused(folder.file(std::string(300, 'n') + ".nc"));
  std::string deep = folder.path().string();
  while (deep.size() < 10'000) deep += "/deep";
  expectRefused(deep + "/set.nc");
  expectRefused(std::string(1'000'000, 'x'));
}

// What follows a zero character is no other name.
TEST_F(Names, WithAZeroCharacter) {
  expectRefused(tinySet() + std::string("\0.nc", 4));
  expectRefused(std::string("\0", 1));
}

TEST_F(Names, OfWhatIsNoFile) {
  const std::string pipe = folder.file("pipe"), plug = folder.file("socket");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const int listening = socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  plug.copy(address.sun_path, sizeof address.sun_path - 1);
  ASSERT_EQ(bind(listening, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  close(listening);
  for (const std::string& name :
       {pipe, plug, std::string("/dev/zero"), std::string("/dev/null"), std::string("/dev/full"),
        std::string("/dev/urandom"), std::string("/dev/tty"), std::string("/dev/stdin"),
        std::string("/proc/self/mem"), std::string("/proc/self/status")}) {
    expectRefused(name);
  }
  fs::create_symlink(pipe, folder.file("to-pipe"));
  fs::create_symlink("round", folder.file("round"));
  fs::create_symlink("/dev/zero", folder.file("zero.nc"));
  for (const char* link : {"to-pipe", "round", "zero.nc"}) expectRefused(folder.file(link));
}

TEST_F(Names, OfFilesThatAreThere) {
  for (const char* name :
       {"two words.nc", "K\xC3\xB6ln.nc", "\xE6\xB5\xB7.nc", "not UTF-8 \xFF\xE9.nc", "blank .nc ",
        "dots...", "-option.nc", "a\nb.nc", "CON", "[x=y]set.nc", "a#b?c%20d.nc", ".hidden"}) {
    expectOpened(folder.file("").append(name));
  }
}

TEST_F(Names, AlmostAsLongAsTheSystemTakes) {
  fs::path deep = folder.path();
  while (deep.native().size() < 3'900) deep /= std::string(80, 'd');
  fs::create_directories(deep);
  expectOpened((deep / (std::string(100, 'n') + ".nc")).string());
}

TEST_F(Names, InAFolderThatVanishes) {
  const fs::path before = fs::current_path();
  const std::string file = tinySet();
  fs::create_directory(folder.file("gone"));
  fs::current_path(folder.file("gone"));
  fs::remove(folder.file("gone"));
  for (const char* name : {"tiny.nc", "./tiny.nc", ""}) {
    EXPECT_EQ(control.NcFile(name), -1) << name;
    EXPECT_NE(control.ErrorMessage(), "");
    EXPECT_EQ(control.KewFile(name), -1) << name;
    control.InitColorKey();
    control.Draw();
  }
  EXPECT_EQ(control.NcFile(file), 1) << control.ErrorMessage();
  EXPECT_EQ(sectionThrough({{350, 0}, {358, 0}}), 1);
  control.InitColorKey();
  EXPECT_EQ(control.KewFile(folder.file("tiny.KEW")), 1) << control.ErrorMessage();
  fs::current_path(before);
}

}  // namespace
