#include "netcdf/status.h"

#include "netcdf/NetCDF.h"
#include "netcdf/classicHeader.h"
#include "netcdf/ncf.h"
#include "netcdf/remoteAdvice.h"
#include "netcdf/remoteName.h"
#include "netcdf/routine.h"
#include "platform/Desktop.h"
#include "platform/texts.h"
#include "util/RuntimeError.h"
#include "util/lastError.h"

namespace ocxNetNc {
namespace {

// The name of the data set that was opened last, and the advice of the last failure.
std::string openedName;
std::string advice;
int64_t opened = 0;

void openWithLibrary(const std::string& name) {
  int id = -1;
  checked(NetCDF::library.nc_open(name.c_str(), NC_NOWRITE, &id));
  ncf.NcId = id;
  ++opened;
}

}  // namespace

std::string NcText(int32_t status) {
  const char* text = NetCDF::library.nc_strerror(status);
  return text == nullptr ? std::string() : platform::textToUtf8(text);
}

void NcErrorReport(int32_t ncId) {
  if (ncId >= 0) NcClose();
  if (ncf.NcStatus == 0) return;
  platform::desktop().ShowMessage(NcText(ncf.NcStatus), "NetCDF Error",
                                  platform::MessageIcon::Critical);
}

int32_t libraryFailure(int32_t status) {
  ncf.NcStatus = status;
  advice = isAddress(openedName) ? "\n" + remoteAdvice(status) : std::string();
  util::LastError = NcText(status) + advice;
  NcErrorReport(ncf.NcId);
  // A missing file, for one, has the system's own positive number.
  return status > 0 ? -status : status;
}

void addToFailure(const std::string& text) {
  std::string& failure = util::LastError;
  const std::size_t end = failure.ends_with(advice) ? failure.size() - advice.size() : failure.size();
  failure.insert(end, text);
}

void NcClose() {
  if (!isOpen()) return;
  NetCDF::library.nc_close(ncf.NcId);
  ncf.NcId = -1;
}

void openDataSet(const std::string& name) {
  openedName = name;
  if (isAddress(name)) {
    openWithLibrary(libraryName(name));
    return;
  }
  switch (checkClassicHeader(name)) {
    case HeaderState::Sound:
      break;
    case HeaderState::Broken:
      throw LibraryRefusal{NC_ENOTNC};
    case HeaderState::CutShort:
      util::raise(util::kInputPastEnd);
  }
  openWithLibrary(name);
}

int32_t NcReopen(int32_t mode) {
  const std::string& name = mode == 2 ? ncf.NcAltFileName : ncf.NcFileName;
  if (name.empty()) return isOpen() ? 1 : -1;
  NcClose();
  const int32_t result = runRoutine("NcReopen", [&] {
    openDataSet(name);
    return 1;
  });
  return result < 0 ? -1 : 1;
}

int64_t openings() { return opened; }

bool isOpen() { return ncf.NcId >= 0; }

}  // namespace ocxNetNc
