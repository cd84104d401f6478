#pragma once

#include "fit/Draft.h"

// The rules that make a copy of a data set one that the control draws, in the order in which they
// are applied. Each looks at the draft, changes what does not fit and tells it. What cannot be done
// throws Failure with the reason.
namespace cli::fit {

void chooseVariables(Draft& draft);  // which can be drawn, and which are asked for
void selectIndices(Draft& draft);    // --select; at most five dimensions
void cutSteps(Draft& draft);         // --times
void fitHorizontal(Draft& draft);    // longitudes and latitudes, --box, --grid
void fitVertical(Draft& draft);      // the vertical axis
void fitTime(Draft& draft);          // the time axis
void orderDimensions(Draft& draft);  // time first, latitude and longitude last
void fitTypes(Draft& draft);         // types of the classic format
void fitMissing(Draft& draft);       // one number for what is missing
void fitAttributes(Draft& draft);    // those that would be misread, and too many
void fitNames(Draft& draft);         // over-long names
void arrange(Draft& draft);          // axes in front, the unlimited dimension, the history

}  // namespace cli::fit
