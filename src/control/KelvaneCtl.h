#pragma once

#include <cstdint>
#include <string>

#include "control/NoDialogs.h"
#include "platform/Desktop.h"
#include "platform/PictureBox.h"

namespace control {

// The members of the control and nothing but the members, in dispatch order. Data problems are
// return values (-1) with the reason in ErrorMessage; a run-time error (util::RuntimeError, or
// std::bad_alloc for "out of memory") can leave AddSection, AddColorKey and AdvanceTime only.
// Everything but the pictures is shared by all controls of the process.
class KelvaneCtl {
 public:
  KelvaneCtl(platform::Pictures pictures, platform::Desktop& desktop,
             Dialogs& dialogs = noDialogs());

  void ShowOptions();
  int16_t NcFile(const std::string& filename);
  int16_t KewFile(const std::string& filename);
  void NewSection();
  void AddSection(float X, float y);
  void AddColorKey(float vLow, float vHig, int32_t col);
  void NewColorKey();
  int16_t EndSection();
  int16_t SetVarByName(const std::string& vName);
  int16_t SetVarByOrder(int32_t Order);
  std::string ErrorMessage() const;
  int32_t NumDrawAbleItems() const;
  std::string ItemName(int32_t nOrder) const;
  bool DrawProfile() const;
  void DrawProfile(bool profile);
  bool DrawVerticalSection() const;
  void DrawVerticalSection(bool section);
  void Draw();
  void SetCurrentTime(int32_t lTime);
  int32_t AdvanceTime(int32_t nt);
  void ReDraw();
  bool UseColorKey() const;
  void UseColorKey(bool use);
  void InitColorKey();

  // The control's client area became width x height pixels: all four pictures fill it, and the
  // held section is drawn again unless the area is empty.
  void Resize(int32_t width, int32_t height);

 private:
  struct Size {
    int32_t width = 0, height = 0;
    bool operator==(const Size&) const = default;
  };
  int16_t open(const std::string& filename);
  void take(Size size);
  void ReadAndDraw();
  void DrawHeld();

  platform::Pictures pictures_;
  platform::Desktop& desktop_;
  Dialogs& dialogs_;
  Size size_;
};

}  // namespace control
