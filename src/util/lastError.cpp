#include "util/lastError.h"

#include "util/RuntimeError.h"
#include "util/numberText.h"

namespace util {
namespace {

uint32_t reported = 0;

// Makes the text of the error being handled into LastError.
template <class MakeText>
void report(const MakeText& makeText) noexcept {
  ++reported;
  try {
    LastError = makeText(currentError());
  } catch (...) {
    // Short enough for the room that every string has in itself.
    LastError = "Out of memory";
  }
}

}  // namespace

std::string LastError;

void reportBracketed(std::string_view routine) noexcept {
  report([&](const ErrorInfo& error) {
    return "[" + std::string(routine) + "] Error: " + error.description;
  });
}

void reportTagged(std::string_view tag) noexcept {
  report([&](const ErrorInfo& error) {
    return std::string(tag) + ": " + generalText(error.number) + ", KelvaneCtl, " +
           error.description;
  });
}

uint32_t failuresReported() { return reported; }

}  // namespace util
