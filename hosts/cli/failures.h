#pragma once

#include <stdexcept>
#include <string>

namespace cli {

inline constexpr int kExitFailure = 1;
inline constexpr int kExitUsage = 2;

// Something could not be done; the text is for the user. Ends the program with kExitFailure.
class Failure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The reader of standard output has gone: it has taken all it wanted, so nothing is reported.
class ReaderGone {};

}  // namespace cli
