#pragma once

// The interface header made from KelvaneCtl.idl: _KelvaneCtl and the identifiers CLSID_KelvaneCtl,
// IID__KelvaneCtl, DIID___KelvaneCtl and LIBID_Kelvane.
#include <KelvaneCtl.idl.h>
