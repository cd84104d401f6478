#pragma once

#include "platform/PictureBox.h"

namespace KelvaneMain {

// Paints the profile view of section_values: value against depth at each point of the path, all
// in one graph or in one each (settings.ProfileStyle), and combines the pictures onto Picture1.
// Nothing happens without a shown item, a path point, a column or a grid. A trapped failure ends
// the drawing steps and is put in LastError under "DrawProfile KelvaneMain"; what was drawn up
// to it is shown.
void DrawProfileView(platform::Pictures& pictures);

}  // namespace KelvaneMain
