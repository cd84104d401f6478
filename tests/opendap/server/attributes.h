#pragma once

#include <DAS.h>

#include "NcFile.h"

namespace dapserver {

// The attributes of a file as DAP 2 has them: a container for every variable, NC_GLOBAL for the
// global ones. A name "container.name" becomes an attribute in a container, the unlimited
// dimension is told in DODS_EXTRA, and the last dimension of characters in a container DODS, as
// servers in use do.
void addAttributes(const NcFile& file, libdap::DAS& das);

}  // namespace dapserver
