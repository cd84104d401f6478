// Texts of numbers and dates: text -> number -> text is stable, and number -> text -> number is
// exact where the text is lossless.

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <string>

#include "colorkey/legend.h"
#include "colorkey/numberField.h"
#include "section/sectionPath.h"
#include "targets/support/Input.h"
#include "targets/support/must.h"
#include "util/RuntimeError.h"
#include "util/calendar.h"
#include "util/numberText.h"
#include "util/rounding.h"

namespace {

template <class Real>
bool same(Real a, Real b) {
  return a == b && std::signbit(a) == std::signbit(b);
}

template <class Real>
void numberThere(Real value) {
  const std::string lossless = util::losslessText(value);
  const std::string general = util::generalText(value);
  MUST(general.size() <= 24 && lossless.size() <= 24);
  MUST(util::signReservingText(value) == (value < 0 ? general : " " + general));
  if (!std::isfinite(value)) return;
  const double back = util::leadingNumber(lossless);
  // Zero has no sign in any text.
  MUST(same(static_cast<Real>(back), value + Real{0}));
  MUST(util::losslessText(static_cast<Real>(back)) == lossless);
}

void number(double value) {
  numberThere(value);
  if (std::isfinite(value)) {
    // Fifteen digits come back from a double, seven do not from every single. The largest doubles
    // are rounded to a text beyond them.
    const std::string general = util::generalText(value);
    const double back = util::leadingNumber(general);
    MUST(std::isinf(back) || util::generalText(back) == general);
    MUST(ModColor::fieldText(value, ".").find("nan") == std::string::npos);
  }
  try {
    const float single = util::storeSingle(value);
    numberThere(single);
    MUST(ModColor::keyBoundText(single).size() < 64);
    const std::string field = ModColor::fieldText(util::asDouble(single), ",");
    if (std::isfinite(single)) {
      MUST(static_cast<float>(ModColor::numberOfField(field, ",").value()) == single);
    }
  } catch (const util::RuntimeError& error) {
    MUST(error.number() == util::kOverflow);
  }
}

// A pattern's text is the number within half of its last digit.
void pattern(double value, const std::string& form) {
  const std::string text = util::patternText(value, form);
  MUST(text.size() <= 400 + form.size());
  const std::size_t point = form.find('.');
  if (form != "#0.00" && form != "#.0" && form != "0") return;
  if (!std::isfinite(value) || std::fabs(value) > 1E12) return;
  const double unit = point == std::string::npos ? 1 : form == "#.0" ? 0.1 : 0.01;
  MUST(std::fabs(util::leadingNumber(text) - value) <= unit * 0.5 + std::fabs(value) * 1E-14);
  MUST(text.find("-0") == std::string::npos || util::leadingNumber(text) != 0);
}

void day(util::Date date) {
  if (!util::isDate(date)) return;
  const std::string text = util::dateText(date);
  const util::Date back = util::readDate(text).value();
  MUST(std::fabs(back - date) <= 0.5001 / 86400);
  MUST(util::dateText(back) == text);
  const util::DateParts parts = util::partsOf(date);
  MUST(parts.month >= 1 && parts.month <= 12 && parts.day >= 1 && parts.day <= 31);
  MUST(parts.hour >= 0 && parts.hour < 24 && parts.minute >= 0 && parts.minute < 60);
  MUST(parts.second >= 0 && parts.second < 60);
  MUST(util::dateOfDay(parts.year, parts.month, parts.day).value() == std::floor(back));
}

void text(const std::string& line) {
  const double value = util::leadingNumber(line);
  MUST(!std::isnan(value));
  number(value);
  day(value);
  // What is in front of the number and behind it does not count.
  MUST(same(util::leadingNumber("  " + line), value));
  if (const auto date = util::readDate(line)) {
    MUST(util::isDate(*date));
    day(*date);
  }
  for (const char* const separator : {".", ",", ""}) {
    if (const auto field = ModColor::numberOfField(line, separator)) {
      MUST(std::isfinite(*field));
      const std::string again = ModColor::fieldText(*field, separator);
      if (*separator == '\0') continue;
      const double back = ModColor::numberOfField(again, separator).value();
      MUST(static_cast<float>(back) == static_cast<float>(*field));
    }
  }
  if (const auto count = ModColor::countOfField(line)) {
    MUST(ModColor::countOfField(std::to_string(*count)) == count);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  while (!input.atEnd()) {
    switch (input.choice(5)) {
      case 0:
        number(input.real());
        break;
      case 1:
        day(input.real());
        break;
      case 2: {
        const double value = input.real();
        pattern(value, input.text(24));
        break;
      }
      case 3: {
        const float longitude = input.single();
        MUST(KelvaneMain::PointLabel(longitude, input.single()).size() < 200);
        break;
      }
      default:
        text(input.text());
        break;
    }
  }
  return 0;
}
