#pragma once

#include <cstdint>
#include <string>

// Opening, closing and the report of what the netCDF library refuses.
namespace ocxNetNc {

// The library's message for a status.
std::string NcText(int32_t status);

// Closes the data set when it is open and, when the last status (ncf.NcStatus) is not 0, shows
// the library's message in a box captioned "NetCDF Error".
void NcErrorReport(int32_t ncId);

// The one way of a library failure: keeps the status in ncf.NcStatus, closes and shows the box
// (NcErrorReport). LastError becomes the library's text; for a data set at an address, advice for
// a person follows behind a line feed. Returns the status as a failure value: always below 0.
int32_t libraryFailure(int32_t status);

// Adds to LastError what was asked of the library: at its end, but before the advice of a failure.
void addToFailure(const std::string& text);

// Closes the data set if it is open; the library's status is ignored.
void NcClose();

// Opens a data set, read-only, into ncf.NcId. Throws (see routine.h) the library's refusal, the
// same for a file whose header cannot be true, and run-time error 62 for a file that ends before
// its data.
void openDataSet(const std::string& name);

// How often a data set has been opened, this time included.
int64_t openings();

// Opens ncf.NcFileName (mode 1) or ncf.NcAltFileName (mode 2) again, read-only. Result 1 when
// the data set is open afterwards, else -1; a refusal is shown and set as LastError. An empty
// name does nothing.
int32_t NcReopen(int32_t mode);

// True while a data set is open.
bool isOpen();

}  // namespace ocxNetNc
