#pragma once

#include <optional>
#include <string>

#include "fit/calendars.h"

// Units of measurement, as the udunits library knows them.
namespace cli::fit {

// What makes numbers of one unit those of another: value x factor + shift.
struct Conversion {
  double factor = 1, shift = 0;
};

// Nothing for units that are unknown or of different quantities.
std::optional<Conversion> conversion(const std::string& from, const std::string& to);

// A time of reference: a date, as it is written, and the seconds of the day.
struct Origin {
  Day day;
  double seconds = 0;
};

// Reads a reference time like "1990-01-01 06:00:00" or "1850-1-1T0:0:0Z"; other zones than the
// universal one are taken into account.
std::optional<Origin> readOrigin(const std::string& text);

}  // namespace cli::fit
