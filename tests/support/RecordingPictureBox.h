#pragma once

#include <string>
#include <vector>

#include "platform/PictureBox.h"

namespace support {

// One operation on a picture box, in the order it was made.
struct Operation {
  enum class Kind { Move, Cls, Refresh, Line, Box, Print, And } kind;
  float x1 = 0, y1 = 0, x2 = 0, y2 = 0;  // Print: x1, y1 is the text position
  platform::Colour colour = 0;
  std::string text = {};     // Print: the text; And: the source's name
  platform::Font font = {};  // Print
  int32_t drawWidth = 1;     // Line
};

// A picture box that draws nothing and records every operation. Its metrics are fixed: every
// character (byte) is 6 wide, text is 13 high at 8 points; other sizes scale in proportion, and
// bold is no wider, so that geometry can be asserted exactly.
class RecordingPictureBox : public platform::PictureBox {
 public:
  explicit RecordingPictureBox(std::string name, int32_t width = 600, int32_t height = 400);

  void Move(int32_t left, int32_t top, int32_t width, int32_t height) override;
  float ScaleWidth() const override;
  float ScaleHeight() const override;
  void Cls() override;
  void Refresh() override;
  void Line(float x1, float y1, float x2, float y2, platform::Colour colour) override;
  void Box(float x1, float y1, float x2, float y2, platform::Colour colour) override;
  void Print(std::string_view text) override;
  float TextWidth(std::string_view text) const override;
  float TextHeight(std::string_view text) const override;
  void AndFrom(const platform::PictureBox& source) override;

  // The operations of one kind, in order.
  std::vector<Operation> of(Operation::Kind kind) const;
  // The printed texts, in order.
  std::vector<std::string> texts() const;
  // The first print of exactly this text; fails the test (and returns a blank one) if none.
  Operation printOf(const std::string& text) const;

  std::string name;
  std::vector<Operation> operations;

 private:
  int32_t width_, height_;
};

// The four pictures of a control, recording.
struct RecordingPictures {
  explicit RecordingPictures(int32_t width = 600, int32_t height = 400)
      : Picture1("Picture1", width, height),
        picDateTime("picDateTime", width, height),
        picSection("picSection", width, height),
        picContours("picContours", width, height) {}
  platform::Pictures pictures() { return {Picture1, picDateTime, picSection, picContours}; }
  void forget();  // empties every record

  RecordingPictureBox Picture1, picDateTime, picSection, picContours;
};

}  // namespace support
