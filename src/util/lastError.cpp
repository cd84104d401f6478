#include "util/lastError.h"

#include "util/RuntimeError.h"
#include "util/numberText.h"

namespace util {
namespace {

uint32_t reported = 0;

}  // namespace

std::string LastError;

void reportBracketed(std::string_view routine) {
  const ErrorInfo error = currentError();
  ++reported;
  LastError = "[" + std::string(routine) + "] Error: " + error.description;
}

void reportTagged(std::string_view tag) {
  const ErrorInfo error = currentError();
  ++reported;
  LastError =
      std::string(tag) + ": " + generalText(error.number) + ", KelvaneCtl, " + error.description;
}

uint32_t failuresReported() { return reported; }

}  // namespace util
