#pragma once

#include "control/Dialogs.h"

namespace control {

// For hosts without windows: every dialog is closed at once, as by its close box, and every
// choice cancelled.
Dialogs& noDialogs();

}  // namespace control
