#pragma once

#include "selector.h"

namespace dapserver {

// What becomes of a good answer under the fault that a selector names; README.md lists them. A
// name that there is no fault of gives status 501, so that no test runs without its fault.
Response spoilt(Response good, const Selector& selector, const Request& request);

}  // namespace dapserver
