#pragma once

#include <cstdint>
#include <string>

namespace cli_test {

// Expects a complete PNG picture of the size: every chunk whole, with its right checksum, up to
// the end chunk and nothing behind it.
void expectPng(const std::string& bytes, uint32_t width, uint32_t height);

}  // namespace cli_test
