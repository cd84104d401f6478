#include "colorkey/frmAutoDiv.h"

namespace ModColor {

void frmAutoDiv::Load() {
  fldMinVal = MinVal;
  fldMaxVal = MaxVal;
  fldDivisions = Divisions;
}

void frmAutoDiv::OK() {
  if (closed()) return;
  MinVal = fldMinVal;
  MaxVal = fldMaxVal;
  Divisions = fldDivisions;
  result_ = 1;
  unload();
}

void frmAutoDiv::Cancel() {
  if (closed()) return;
  result_ = -1;
  unload();
}

}  // namespace ModColor
