#pragma once

#include <cstdint>
#include <string>

#include "util/OneBased.h"

namespace ocxNetNc {

// The four title lines of a picture: file name, date of the time step, title of the data set,
// long name and unit of the variable. Before the first MakeTitle all are empty.
extern util::OneBased<std::string> TitleLines;

// Rebuilds TitleLines for a catalogue variable and a time step (both from 1); returns 4. A
// number outside gives empty texts and the text of date zero.
int32_t MakeTitle(int32_t variable, int32_t timeStep);

}  // namespace ocxNetNc
