#pragma once

#include "platform/PictureBox.h"

namespace KelvaneMain {

// Paints the vertical section held in section_values: titles, cell blocks, axes, legend, contour
// lines where the view style asks for them (and this frame has a mapping to place them by), and
// combines the pictures onto Picture1. A trapped failure ends the drawing steps and is put in
// LastError under "DrawVSection KelvaneMain"; what was drawn up to it is shown.
void DrawVSection(platform::Pictures& pictures);

// Prints the title lines; drawn by the section and the profile view alike.
void DrawTitles(platform::PictureBox& titleSurface, platform::PictureBox& surface);

// Margins, mapping, cell blocks and axes. 0, or -1 when the mapping could not be set up:
// neither blocks nor axes are drawn then.
int DrawFrameAndAxes(platform::PictureBox& surface);

}  // namespace KelvaneMain
