#include "ProgressBar.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string_view>

#include "terminal.h"

namespace cli {
namespace {

constexpr auto kSlowest = std::chrono::milliseconds(100);

// "0.25", "3.1", "42": two digits, more only before the point.
std::string paceText(double perSecond, const std::string& unit) {
  const double hundredths = std::min(std::round(perSecond * 100.0), 1e9);
  const int64_t whole = static_cast<int64_t>(hundredths) / 100;
  const int64_t rest = static_cast<int64_t>(hundredths) % 100;
  std::string text = std::to_string(whole);
  if (whole < 1) {
    text += (rest < 10 ? ".0" : ".") + std::to_string(rest);
  } else if (whole < 10) {
    text += "." + std::to_string(rest / 10);
  }
  return text + " " + unit + "s/s";
}

std::string twoDigits(int64_t number) { return (number < 10 ? "0" : "") + std::to_string(number); }

// "0:07", "12:30", "3:00:00".
std::string clockText(double seconds) {
  const int64_t all = static_cast<int64_t>(std::ceil(std::min(seconds, 1e9)));
  const int64_t hours = all / 3600, minutes = all / 60 % 60;
  return (hours > 0 ? std::to_string(hours) + ":" + twoDigits(minutes) : std::to_string(minutes)) +
         ":" + twoDigits(all % 60);
}

std::string barOf(double share, int32_t width) {
  const auto filled = static_cast<std::size_t>(share * width);
  std::string bar(filled, '#');
  bar.resize(static_cast<std::size_t>(width), '-');
  return "[" + bar + "] ";
}

}  // namespace

std::string progressText(int32_t done, int32_t total, double seconds, int32_t width,
                         const std::string& unit) {
  constexpr int32_t kLeastBar = 10, kMostBar = 40;
  const double share = total > 0 ? static_cast<double>(done) / total : 1.0;
  const std::string percent = std::to_string(static_cast<int32_t>(share * 100.0)) + "%";
  std::string text = std::string(4 - std::min<std::size_t>(percent.size(), 4), ' ') + percent;
  const auto fits = [&](std::size_t more) {
    return text.size() + more <= static_cast<std::size_t>(std::max(width, 0));
  };
  if (!fits(0)) return {};
  const auto append = [&](const std::string& part) {
    if (fits(part.size())) text += part;
  };
  append("  " + unit + " " + std::to_string(done) + " of " + std::to_string(total));
  if (done > 0 && seconds > 0.0) {
    append("  " + paceText(done / seconds, unit));
    append("  " + clockText(seconds / done * (total - done)) + " left");
  }
  const int32_t room = width - static_cast<int32_t>(text.size()) - 3;
  return room < kLeastBar ? text : barOf(share, std::min(room, kMostBar)) + text;
}

ProgressBar::ProgressBar(int32_t total, std::string unit)
    : total_(total), unit_(std::move(unit)) {
  if (errorsGoToATerminal()) signals_.emplace();
}

ProgressBar::~ProgressBar() {
  if (signals_) writeToErrors(kClearLine);
}

void ProgressBar::show(int32_t done) {
  if (!signals_) return;
  const Clock::time_point now = Clock::now();
  if (shown_ && now - *shown_ < kSlowest) return;
  shown_ = now;
  const double seconds = std::chrono::duration<double>(now - start_).count();
  // The last character of a line is left free: some terminals would go on to the next.
  writeToErrors(kClearLine + progressText(done, total_, seconds, errorsWidth() - 1, unit_));
}

}  // namespace cli
