#include "diagnosis/timeUnits.h"

#include "util/ocxStrings.h"

namespace cli::diagnosis {
namespace {

using Kind = TimeUnits::Kind;

Kind kindOf(const std::string& word) {
  const std::string start = ocxStrings::upper(word.substr(0, 3));
  if (start == "DAY") return Kind::Days;
  if (start == "HOU") return Kind::Hours;
  if (start == "MIN") return Kind::Minutes;
  if (start == "SEC") return Kind::Seconds;
  if (start == "MON") return Kind::Months;
  if (start == "SEA") return Kind::Seasons;
  return Kind::Unknown;
}

}  // namespace

bool TimeUnits::countsDates() const {
  return kind == Kind::Days || kind == Kind::Hours || kind == Kind::Minutes ||
         kind == Kind::Seconds;
}

double TimeUnits::dateOf(double value) const {
  switch (kind) {
    case Kind::Hours:
      return origin + value / 24;
    case Kind::Minutes:
      return origin + value / 24 / 60;
    case Kind::Seconds:
      return origin + value / 24 / 60 / 60;
    default:
      return origin + value;
  }
}

TimeUnits timeUnitsOf(const std::string& units) {
  TimeUnits found;
  found.word = ocxStrings::FieldText(units, 1);
  found.kind = kindOf(found.word);
  if (ocxStrings::upper(ocxStrings::FieldText(units, 2)) != "SINCE") return found;
  found.originText = ocxStrings::FieldText(units, 3);
  found.behindOrigin = ocxStrings::FieldText(units, 4);
  if (const auto date = util::readDate(found.originText)) {
    found.originRead = true;
    found.origin = *date;
  }
  return found;
}

}  // namespace cli::diagnosis
