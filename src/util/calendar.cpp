#include "util/calendar.h"

#include <array>
#include <chrono>
#include <cmath>

#include "util/RuntimeError.h"
#include "util/ocxStrings.h"
#include "util/rounding.h"

namespace util {
namespace {

namespace chrono = std::chrono;

constexpr int32_t kFirstYear = 100;
constexpr int32_t kLastYear = 9999;
constexpr double kSecondsOfDay = 86400.0;

constexpr chrono::sys_days dayOf(int32_t year, uint32_t month, uint32_t day) {
  return chrono::year{year} / chrono::month{month} / chrono::day{day};
}

constexpr chrono::sys_days kEpoch = dayOf(1899, 12, 30);
constexpr double kFirstDay = (dayOf(kFirstYear, 1, 1) - kEpoch).count();
constexpr double kLastDay = (dayOf(kLastYear, 12, 31) - kEpoch).count();

// A date as whole days and the nearest second of the day.
struct Split {
  int32_t day = 0;
  int32_t second = 0;
};

std::optional<Split> split(Date date) {
  if (!(date >= kFirstDay && date < kLastDay + 1.0)) return std::nullopt;
  const double day = std::floor(date);
  Split parts{static_cast<int32_t>(day),
              roundToLong((date - day) * kSecondsOfDay)};
  if (parts.second >= static_cast<int32_t>(kSecondsOfDay)) {
    ++parts.day;
    parts.second = 0;
  }
  if (parts.day > kLastDay) return std::nullopt;
  return parts;
}

void appendNumber(std::string& text, int32_t number, std::size_t width) {
  const std::string digits = std::to_string(number);
  if (digits.size() < width) text.append(width - digits.size(), '0');
  text += digits;
}

// Reads a date text from its start; every taking method leaves the place alone when it fails.
class DateReader {
 public:
  explicit DateReader(std::string_view text) : text_(text) {}

  void skipBlanks() {
    while (peek() == ' ') ++at_;
  }
  bool take(char wanted) {
    if (peek() != wanted) return false;
    ++at_;
    return true;
  }
  bool atEnd() const { return at_ == text_.size(); }
  char peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }

  // A number of at most so many digits, blanks allowed in front; -1 when there is none.
  int32_t number(int most) {
    skipBlanks();
    int32_t value = 0;
    int count = 0;
    for (; peek() >= '0' && peek() <= '9'; ++at_, ++count) {
      if (count == most) return -1;
      value = value * 10 + (peek() - '0');
    }
    return count == 0 ? -1 : value;
  }

  // The number of an English month name, whole or its first three letters; -1 for another word.
  int32_t monthName() {
    static constexpr std::array<std::string_view, 12> kMonths = {
        "JANUARY", "FEBRUARY", "MARCH",     "APRIL",   "MAY",      "JUNE",
        "JULY",    "AUGUST",   "SEPTEMBER", "OCTOBER", "NOVEMBER", "DECEMBER"};
    skipBlanks();
    const std::size_t start = at_;
    while ((peek() >= 'a' && peek() <= 'z') || (peek() >= 'A' && peek() <= 'Z')) ++at_;
    const std::string word = ocxStrings::upper(text_.substr(start, at_ - start));
    for (std::size_t i = 0; i < kMonths.size(); ++i) {
      if (word == kMonths[i] || word == kMonths[i].substr(0, 3)) return static_cast<int32_t>(i) + 1;
    }
    return -1;
  }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
};

// Two-digit years and, as the classic calendar reads them, every other year below 100.
int32_t fullYear(int32_t year) {
  if (year < 50) return 2000 + year;
  return year < 100 ? 1900 + year : year;
}

std::optional<Date> readDay(DateReader& reader) {
  const int32_t first = reader.number(4);
  const char separator = reader.peek();
  if (first < 0 || (separator != '-' && separator != '/')) return std::nullopt;
  reader.take(separator);
  reader.skipBlanks();
  const bool numeric = reader.peek() >= '0' && reader.peek() <= '9';
  if (!numeric && separator != '-') return std::nullopt;
  const int32_t month = numeric ? reader.number(2) : reader.monthName();
  if (month < 0 || !reader.take(separator)) return std::nullopt;
  const int32_t last = reader.number(numeric ? 2 : 4);
  if (last < 0) return std::nullopt;
  return numeric ? dateOfDay(fullYear(first), month, last)
                 : dateOfDay(fullYear(last), month, first);
}

std::optional<double> readTimeOfDay(DateReader& reader) {
  const int32_t hour = reader.number(2);
  if (hour < 0 || hour > 23 || !reader.take(':')) return std::nullopt;
  const int32_t minute = reader.number(2);
  if (minute < 0 || minute > 59) return std::nullopt;
  int32_t second = 0;
  if (reader.take(':')) {
    second = reader.number(2);
    if (second < 0 || second > 59) return std::nullopt;
  }
  return (hour * 3600 + minute * 60 + second) / kSecondsOfDay;
}

}  // namespace

bool isDate(Date date) { return split(date).has_value(); }

Date checkedDate(double date) {
  if (!isDate(date)) raise(kOverflow);
  return date;
}

std::optional<Date> dateOfDay(int32_t year, int32_t month, int32_t day) {
  if (year < kFirstYear || year > kLastYear || month < 1 || month > 12 || day < 1) {
    return std::nullopt;
  }
  const chrono::year_month_day date{chrono::year{year}, chrono::month{static_cast<uint32_t>(month)},
                                    chrono::day{static_cast<uint32_t>(day > 31 ? 0 : day)}};
  if (!date.ok()) return std::nullopt;
  return static_cast<double>((chrono::sys_days{date} - kEpoch).count());
}

DateParts partsOf(Date date) {
  const std::optional<Split> parts = split(date);
  if (!parts) raise(kOverflow);
  const chrono::year_month_day day{kEpoch + chrono::days{parts->day}};
  const int32_t second = parts->second;
  return {.year = static_cast<int>(day.year()),
          .month = static_cast<int32_t>(static_cast<unsigned>(day.month())),
          .day = static_cast<int32_t>(static_cast<unsigned>(day.day())),
          .hour = second / 3600,
          .minute = second / 60 % 60,
          .second = second % 60};
}

std::string dateText(Date date) {
  const DateParts parts = partsOf(date);
  std::string text;
  appendNumber(text, parts.year, 4);
  appendNumber(text += '-', parts.month, 2);
  appendNumber(text += '-', parts.day, 2);
  appendNumber(text += ' ', parts.hour, 2);
  appendNumber(text += ':', parts.minute, 2);
  appendNumber(text += ':', parts.second, 2);
  return text;
}

std::optional<Date> readDate(std::string_view text) {
  DateReader reader(text);
  const std::optional<Date> day = readDay(reader);
  if (!day || reader.atEnd() || reader.peek() == 'T') return day;
  if (reader.peek() != ' ') return std::nullopt;
  reader.skipBlanks();
  if (reader.atEnd()) return day;
  const std::optional<double> time = readTimeOfDay(reader);
  if (!time) return std::nullopt;
  reader.skipBlanks();
  if (!reader.atEnd()) return std::nullopt;
  return *day + *time;
}

}  // namespace util
