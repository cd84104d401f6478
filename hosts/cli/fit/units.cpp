#include "fit/units.h"

#include <udunits2.h>

#include <cmath>
#include <memory>

#include "failures.h"

namespace cli::fit {
namespace {

struct Freed {
  void operator()(ut_unit* unit) const { ut_free(unit); }
  void operator()(ut_system* system) const { ut_free_system(system); }
  void operator()(cv_converter* converter) const { cv_free(converter); }
};

using Unit = std::unique_ptr<ut_unit, Freed>;
using Converter = std::unique_ptr<cv_converter, Freed>;

ut_system* unitSystem() {
  static const std::unique_ptr<ut_system, Freed> system = [] {
    ut_set_error_message_handler(ut_ignore);
    return std::unique_ptr<ut_system, Freed>(ut_read_xml(nullptr));
  }();
  if (!system)
    throw Failure("The database of units is missing: install the package libudunits2-data.");
  return system.get();
}

Unit parse(const std::string& text) {
  ut_system* system = unitSystem();
  return Unit(ut_parse(system, text.c_str(), UT_UTF8));
}

Converter converter(const Unit& from, const Unit& to) {
  if (!from || !to || ut_are_convertible(from.get(), to.get()) == 0) return nullptr;
  return Converter(ut_get_converter(from.get(), to.get()));
}

}  // namespace

std::optional<Conversion> conversion(const std::string& from, const std::string& to) {
  const Converter found = converter(parse(from), parse(to));
  if (!found) return std::nullopt;
  const double shift = cv_convert_double(found.get(), 0.0);
  return Conversion{cv_convert_double(found.get(), 1.0) - shift, shift};
}

std::optional<Origin> readOrigin(const std::string& text) {
  // The library takes the year 0 of climatologies for the year 1.
  const std::size_t year = text.find_first_not_of('0');
  if (year != std::string::npos && year > 0 && text[year] == '-') {
    std::optional<Origin> origin = readOrigin("2000" + text.substr(year));
    if (origin) origin->day.year -= 2000;
    return origin;
  }
  // Against a day that the calendar of the library counts from, both halves stay exact.
  const Converter found =
      converter(parse("seconds since " + text), parse("seconds since 2001-01-01 00:00:00"));
  if (!found) return std::nullopt;
  constexpr double kDay = 86400.0;
  const double seconds = cv_convert_double(found.get(), 0.0);
  const double days = std::floor(seconds / kDay);
  const int64_t base = countOf(Calendar::Standard, {2001, 1, 1});
  return Origin{dayOf(Calendar::Standard, base + static_cast<int64_t>(days)),
                seconds - days * kDay};
}

}  // namespace cli::fit
