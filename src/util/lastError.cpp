#include "util/lastError.h"

#include "util/RuntimeError.h"
#include "util/numberText.h"

namespace util {

std::string LastError;

void reportBracketed(std::string_view routine) {
  const ErrorInfo error = currentError();
  LastError = "[" + std::string(routine) + "] Error: " + error.description;
}

void reportTagged(std::string_view tag) {
  const ErrorInfo error = currentError();
  LastError =
      std::string(tag) + ": " + generalText(error.number) + ", KelvaneCtl, " + error.description;
}

}  // namespace util
