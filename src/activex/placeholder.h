#pragma once

#include <windows.h>

namespace activex {

class Ambient;

// What stands for the picture on a form that is being designed: a border and the name of the
// control, in the colours and the font of its surroundings. It fills bounds, in the coordinates of
// any device context. The name is as large as it would be in a control of height pixels.
void drawPlaceholder(const Ambient& ambient, HDC dc, const RECT& bounds, int height);

}  // namespace activex
