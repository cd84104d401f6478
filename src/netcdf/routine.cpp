#include "netcdf/routine.h"

#include "netcdf/status.h"
#include "util/lastError.h"

namespace ocxNetNc {

void checked(int status) {
  if (status != 0) throw LibraryRefusal{status};
}

int32_t runRoutine(std::string_view tag, const std::function<int32_t()>& body) {
  try {
    return body();
  } catch (const LibraryRefusal& refusal) {
    return libraryFailure(refusal.status);
  } catch (const DataProblem& problem) {
    util::LastError = problem.what();
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
