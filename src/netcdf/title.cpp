#include "netcdf/title.h"

#include "netcdf/catalogue.h"
#include "netcdf/ncf.h"
#include "netcdf/remoteName.h"
#include "netcdf/timeAxis.h"
#include "util/ocxStrings.h"

namespace ocxNetNc {

util::OneBased<std::string> TitleLines(4);

int32_t MakeTitle(int32_t variable, int32_t timeStep) {
  util::OneBased<std::string> lines(4);
  lines(1) = ocxStrings::FileNameOf(withoutCredentials(DataSetName));
  if (ncf.has_time == 1) lines(2) = util::dateText(TimeValueToDate(timeStep));
  lines(3) = FindAttribute("title", "");
  if (ncf.NcVars.has(variable)) {
    const NcVar& shown = ncf.NcVars(variable);
    lines(4) = ocxStrings::trim(shown.LongName) + " [" + ocxStrings::trim(shown.Unit) + "]";
  }
  TitleLines = lines;
  return TitleLines.size();
}

}  // namespace ocxNetNc
