#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "BareReads.h"
#include "control/KelvaneCtl.h"
#include "platform/cairo/CairoPictures.h"

namespace bench {

// Places on a path as shares of the grid's width and height, 0..1.
struct Share {
  double x, y;
};
using Path = std::vector<Share>;

// Paths: across the grid with a bend, crossing about as many cells as it has places on two sides;
// a straight line; and along one axis.
Path acrossPath();
Path straightPath();
Path rowPath();
Path columnPath();

struct Size {
  int32_t width = 0, height = 0;
};
inline constexpr Size kWindow = {1000, 600};
inline constexpr Size kLargeScreen = {3840, 2160};
std::string text(Size size);

// A control without a window, with a data set opened and a path built in it; its first time step
// is drawn. All controls of a process share their state: one scene at a time. What the control
// refuses throws std::runtime_error.
class Scene {
 public:
  Scene(const std::string& file, const Path& path, Size size);
  // Another path; not drawn yet. The path of so many columns along the first rows of the grid.
  void usePath(const Path& path);
  void useColumns(int32_t columns);
  // A key of so many divisions side by side from 0 to 30 degrees.
  void useKey(int32_t divisions);

  control::KelvaneCtl& control() { return control_; }
  const platform::CairoPictures& pictures() const { return pictures_; }
  // Throws when anything went wrong since the last look.
  void mustBeWell() const;
  BareReads bareReads() const;
  int32_t columns() const;
  int32_t levels() const;

 private:
  struct QuietDesktop : platform::Desktop {
    void ShowMessage(std::string_view text, std::string_view, platform::MessageIcon) override {
      message = text;
    }
    void SetWaitPointer(bool) override {}
    std::string message;
  };
  void must(int16_t result) const;

  std::string file_;
  platform::CairoPictures pictures_{platform::CairoPictures::Kind::Pixels};
  QuietDesktop desktop_;
  control::KelvaneCtl control_;
};

}  // namespace bench
