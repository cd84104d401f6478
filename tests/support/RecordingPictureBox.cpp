#include "support/RecordingPictureBox.h"

#include <gtest/gtest.h>

namespace support {

using Kind = Operation::Kind;

RecordingPictureBox::RecordingPictureBox(std::string boxName, int32_t width, int32_t height)
    : name(std::move(boxName)), width_(width), height_(height) {}

void RecordingPictureBox::Move(int32_t left, int32_t top, int32_t width, int32_t height) {
  width_ = width;
  height_ = height;
  operations.push_back({.kind = Kind::Move,
                        .x1 = static_cast<float>(left),
                        .y1 = static_cast<float>(top),
                        .x2 = static_cast<float>(width),
                        .y2 = static_cast<float>(height)});
}

float RecordingPictureBox::ScaleWidth() const { return static_cast<float>(width_); }
float RecordingPictureBox::ScaleHeight() const { return static_cast<float>(height_); }

void RecordingPictureBox::Cls() {
  CurrentX = CurrentY = 0;
  operations.push_back({.kind = Kind::Cls});
}

void RecordingPictureBox::Refresh() { operations.push_back({.kind = Kind::Refresh}); }

void RecordingPictureBox::Line(float x1, float y1, float x2, float y2, platform::Colour colour) {
  operations.push_back({.kind = Kind::Line,
                        .x1 = x1,
                        .y1 = y1,
                        .x2 = x2,
                        .y2 = y2,
                        .colour = colour,
                        .drawWidth = DrawWidth});
}

void RecordingPictureBox::Box(float x1, float y1, float x2, float y2, platform::Colour colour) {
  operations.push_back({.kind = Kind::Box, .x1 = x1, .y1 = y1, .x2 = x2, .y2 = y2, .colour = colour});
}

void RecordingPictureBox::Print(std::string_view text) {
  operations.push_back({.kind = Kind::Print,
                        .x1 = CurrentX,
                        .y1 = CurrentY,
                        .colour = ForeColor,
                        .text = std::string(text),
                        .font = Font});
  CurrentX = 0;
  CurrentY += TextHeight(text);
}

float RecordingPictureBox::TextWidth(std::string_view text) const {
  return 6.0F * static_cast<float>(text.size()) * (Font.Size / 8.0F);
}

float RecordingPictureBox::TextHeight(std::string_view) const {
  return 13.0F * (Font.Size / 8.0F);
}

void RecordingPictureBox::AndFrom(const platform::PictureBox& source) {
  operations.push_back({.kind = Kind::And,
                        .text = dynamic_cast<const RecordingPictureBox&>(source).name});
}

std::vector<Operation> RecordingPictureBox::of(Kind kind) const {
  std::vector<Operation> found;
  for (const Operation& operation : operations) {
    if (operation.kind == kind) found.push_back(operation);
  }
  return found;
}

std::vector<std::string> RecordingPictureBox::texts() const {
  std::vector<std::string> found;
  for (const Operation& operation : of(Kind::Print)) found.push_back(operation.text);
  return found;
}

Operation RecordingPictureBox::printOf(const std::string& text) const {
  for (const Operation& operation : of(Kind::Print)) {
    if (operation.text == text) return operation;
  }
  ADD_FAILURE() << name << " never printed [" << text << "]";
  return {.kind = Kind::Print};
}

void RecordingPictures::forget() {
  for (RecordingPictureBox* box : {&Picture1, &picDateTime, &picSection, &picContours}) {
    box->operations.clear();
  }
}

}  // namespace support
