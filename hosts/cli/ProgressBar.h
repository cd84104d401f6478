#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "interruption.h"

namespace cli {

// The line of a progress bar that fits in width characters: percent, frame, pace, time left.
// Parts that do not fit are left out, the bar itself first; seconds have passed for the frames
// done so far. unit is what is counted: "frame".
std::string progressText(int32_t done, int32_t total, double seconds, int32_t width,
                         const std::string& unit = "frame");

// A progress bar on standard error, when that is a terminal; otherwise nothing at all. Its line
// is cleared at the end of the scope, and by a signal that ends the program.
class ProgressBar {
 public:
  explicit ProgressBar(int32_t total, std::string unit = "frame");
  ~ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  // Shows how many are done, ten times a second at most.
  void show(int32_t done);

 private:
  using Clock = std::chrono::steady_clock;

  int32_t total_;
  std::string unit_;
  Clock::time_point start_ = Clock::now();
  std::optional<Clock::time_point> shown_;
  // Only where there is a terminal.
  std::optional<SignalsClearLine> signals_;
};

}  // namespace cli
