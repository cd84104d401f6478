#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ocxNetNc {

// Opens a data set (a file name or an address) and reads its whole header into ncf; a data set
// that is still open is closed first. Result 1, or -1 with the reason in LastError; a failure
// leaves ncf partly filled and the data set closed. keepOpen 1 closes it at the end, 0 leaves
// it open for the readers.
int32_t OpenCatalogue(const std::string& name, int32_t keepOpen);

// The value of a variable's attribute of exactly that name, or, with an empty variable name,
// of a global one; empty when there is none.
std::string FindAttribute(std::string_view attribute, std::string_view variable);

}  // namespace ocxNetNc
