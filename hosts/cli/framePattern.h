#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace cli {

// The names of numbered files, as "frame-%03d.png" gives them.
class FramePattern {
 public:
  // Reads a pattern with exactly one %d or %0Nd (N digits at least, 1 to 99); %% is a percent
  // sign. Nothing when the text is anything else.
  static std::optional<FramePattern> read(std::string_view text);

  std::string name(int32_t number) const;

 private:
  std::string before_, after_;
  std::size_t digits_ = 1;
};

}  // namespace cli
