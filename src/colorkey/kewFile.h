#pragma once

#include <cstdint>
#include <string>

namespace ModColor {

// KEW files keep colour keys on disk, one for each variable name, as XML:
// section / variable (name) / division / low, high, color. A bound that is no finite number has no
// text that reads back: it comes back as 0.

// Reads the key of the item shown into ColorKey's lists: the first variable element of its name
// in document order. Returns the number of divisions, which the caller stores as nDivision; -1,
// with ColorKey as it was, when the file is missing, unreadable, larger than 64 MiB, malformed or
// without the variable. Any other failure is reported under "ModColor GetKewCol" and gives -1;
// the divisions read before it are kept.
int32_t GetKewCol(const std::string& fileName);

// The same, but what is more than a missing key leaves it as an exception.
int32_t ReadKewCol(const std::string& fileName);

// Writes the key of the item shown into the data set's own KEW file: a new file, or an existing
// one with this key replaced. Failures are reported under "ModColor SaveKEW". From the reading of
// an existing file to its replacement no other program that saves this way comes in between, so
// that no key of another variable is lost; a wait for one ends after some seconds as a failure.
void SaveKEW();

// Replaces or adds one variable's key in an existing KEW file, as its last element; everything
// else in the file is kept. Failures are reported under "ModColor SaveExistingKew" and leave
// the file as it was.
void SaveExistingKew(const std::string& fileName, const std::string& variable);

// The data set's own KEW file: its name with the extension "KEW"; empty without a data set.
std::string ownKewFile();

}  // namespace ModColor
