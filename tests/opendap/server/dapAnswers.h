#pragma once

#include <string>

#include "Http.h"

namespace dapserver {

// The answer of a DAP 2 server to FILE.dds, FILE.das or FILE.dods with a constraint (plain
// characters), kind being what follows the last dot. What is wrong becomes a DAP error.
Response dapAnswer(const std::string& file, const std::string& kind,
                   const std::string& constraint);

// A DAP error object as a body.
std::string dapError(int code, const std::string& message);

}  // namespace dapserver
