#pragma once

#include <string>

#include "util/calendar.h"

namespace cli::diagnosis {

// A time axis' units as the control reads them: the first word, and the third as the origin.
struct TimeUnits {
  enum class Kind { Days, Hours, Minutes, Seconds, Months, Seasons, Unknown };
  Kind kind = Kind::Unknown;
  std::string word;          // the unit
  std::string originText;    // what follows "since", up to the next blank; empty without "since"
  std::string behindOrigin;  // and what follows that
  bool originRead = false;   // the text is a date to the control
  util::Date origin = util::kDateZero;

  bool countsDates() const;
  // The moment of a value, for units that count dates.
  double dateOf(double value) const;
};

TimeUnits timeUnitsOf(const std::string& units);

}  // namespace cli::diagnosis
