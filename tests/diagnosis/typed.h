#pragma once

#include <string>

#include "Subprocess.h"

namespace diagnosis_test {

// Has a shell run a command that begins with "kelvane ", as it stands, in a folder.
cli_test::Result typed(const std::string& command, const std::string& folder);

}  // namespace diagnosis_test
