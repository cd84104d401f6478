#pragma once

#include <string>

namespace ocxNetNc {

enum class HeaderState {
  Sound,     // also every name that is no file of the classic formats: the library decides
  Broken,    // numbers that cannot be true
  CutShort,  // the file ends before the data that its header describes
};

// Looks at the header of a local file (UTF-8 name) in one of the classic formats (CDF-1, -2 and
// -5) before the library does: the library trusts what it reads there, divides by it, allocates
// it, and takes data beyond the end of the file for zeros.
HeaderState checkClassicHeader(const std::string& name);

}  // namespace ocxNetNc
