#pragma once

#include <optional>
#include <string>
#include <vector>

// Times in units that the control reads as they are meant.
namespace cli::fit {

// The outcome: no units when nothing had to be changed.
struct TimeUnits {
  std::string units;
  std::vector<double> values;
  std::string reason;
  std::vector<std::string> notes;  // what a user should know, also without a change
};

// units and calendar are the texts of the attributes.
TimeUnits fitTimeUnits(const std::string& units, const std::string& calendar,
                       const std::vector<double>& values);

inline constexpr const char* kDayUnits = "days since 1900-01-01";

// Dates like "2000-01-24_12:00:00" in days since 1900-01-01; nothing when one of them is no date.
std::optional<std::vector<double>> daysOfTexts(const std::vector<std::string>& texts);

}  // namespace cli::fit
