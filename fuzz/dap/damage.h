#pragma once

#include <string>

#include "../files/Random.h"

namespace fuzz {

// Damages an answer in one to four places: bits, bytes, words of the protocol, lines, numbers in
// the text and in the data, an early end.
void damage(std::string& answer, Random& random);

}  // namespace fuzz
