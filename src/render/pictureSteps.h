#pragma once

#include <initializer_list>
#include <string_view>

#include "platform/PictureBox.h"
#include "util/lastError.h"

namespace KelvaneMain {

// Runs a part of a drawing. A failure ends it and is reported under the tag.
template <class Step>
void trapped(std::string_view tag, Step step) {
  try {
    step();
  } catch (...) {
    util::reportTagged(tag);
  }
}

// Transfers the given pictures into picSection, and that onto the visible Picture1, which takes
// it over as it is. White is neutral in every transfer, so the inks of all surfaces meet.
inline void CombinePictures(platform::Pictures& pictures,
                            std::initializer_list<const platform::PictureBox*> overlays) {
  for (const platform::PictureBox* overlay : overlays) pictures.picSection.AndFrom(*overlay);
  pictures.Picture1.TakeFrom(pictures.picSection);
  pictures.picSection.Refresh();
  pictures.Picture1.Refresh();
}

}  // namespace KelvaneMain
