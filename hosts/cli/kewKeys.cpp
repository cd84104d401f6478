#include "kewKeys.h"

#include <stdexcept>

#include "failures.h"

namespace cli {

std::vector<ModColor::KewVariable> keysOf(const std::string& file) {
  try {
    return ModColor::ListKewFile(file);
  } catch (const std::runtime_error& error) {
    const std::string text = error.what();
    const bool named = text.find(file) != std::string::npos;
    throw Failure(named ? text : file + ": " + text);
  }
}

}  // namespace cli
