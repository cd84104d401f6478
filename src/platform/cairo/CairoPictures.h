#pragma once

#include <memory>
#include <string>

#include "platform/PictureBox.h"

namespace platform {

// The four pictures of a control on Cairo surfaces: pixels for PNG, or recorded drawing for
// SVG and PDF as true vectors. One scale unit is one pixel at 96 dots per inch. A side is cut to
// 32767 pixels; a picture of more than 64 Mi pixels is empty, and an empty one cannot be saved.
class CairoPictures {
 public:
  enum class Kind { Pixels, Vectors };
  explicit CairoPictures(Kind kind);
  ~CairoPictures();

  Pictures pictures();

  // Write Picture1 to a file: complete, or not at all (written beside, then renamed). A failure
  // throws std::runtime_error with a text for the user. savePng needs Kind::Pixels, the other
  // two Kind::Vectors (std::logic_error otherwise). The title is put in the file's metadata.
  void savePng(const std::string& path) const;
  void saveSvg(const std::string& path, const std::string& title) const;
  void savePdf(const std::string& path, const std::string& title) const;

 private:
  struct Boxes;
  std::unique_ptr<Boxes> boxes_;
};

}  // namespace platform
