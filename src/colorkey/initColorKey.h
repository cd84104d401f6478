#pragma once

#include <string>

namespace ModColor {

// The default key of the item shown, unless a key is there (nDivision not 0): loaded from the
// named KEW file when that exists, otherwise ten equal divisions of the plotting range in random
// colours, saved in the data set's own KEW file. Either way the key is then in use. A section
// that cannot be read, or has no value, gives no key. Any failure ends in a message box titled
// "InitColorKey".
void InitColorKey(const std::string& fileName);

}  // namespace ModColor
