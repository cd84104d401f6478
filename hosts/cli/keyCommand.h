#pragma once

#include <string>

namespace cli {

enum class KeyForm { Text, Json };

// Lists the colour keys of a KEW file on standard output. A file that cannot be read or is no
// KEW file throws Failure with the reason; so does, after the listing, a key that counts and
// cannot be read to its end.
void listKeys(const std::string& file, KeyForm form);

}  // namespace cli
