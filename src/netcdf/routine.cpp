#include "netcdf/routine.h"

#include <new>

#include "netcdf/status.h"
#include "platform/memory.h"
#include "util/lastError.h"

namespace ocxNetNc {

void checked(int status) {
  if (status != 0) throw LibraryRefusal{status};
}

void requireReserve() {
  // What an opening takes at most, and reading from the chunks of common files.
  constexpr std::size_t kReserve = std::size_t{16} << 20;
  if (!platform::hasMemoryFor(kReserve)) throw std::bad_alloc();
}

namespace {

// The way of each kind of exception; it may fail itself for want of memory.
int32_t sortedFailure() {
  try {
    throw;
  } catch (const LibraryRefusal& refusal) {
    return libraryFailure(refusal.status);
  } catch (const DataProblem& problem) {
    util::LastError = problem.what();
  }
  return -1;
}

}  // namespace

int32_t routineFailure(std::string_view tag) noexcept {
  try {
    return sortedFailure();
  } catch (...) {
    util::reportBracketed(tag);
    NcClose();
  }
  return -1;
}

std::string joinPieces(std::initializer_list<std::string_view> pieces) {
  std::string text;
  for (const std::string_view piece : pieces) {
    if (!text.empty()) text += "\n\n";
    text += piece;
  }
  return text;
}

}  // namespace ocxNetNc
