#include "kewKeys.h"

#include <cstdint>
#include <limits>
#include <stdexcept>

#include "failures.h"
#include "util/RuntimeError.h"

namespace cli {

std::string failureOf(const ModColor::KewVariable& variable) {
  if (variable.failure.empty()) return {};
  if (variable.name.find('"') != std::string::npos) {
    return "a name with a double quote is never found";
  }
  // Divisions are counted in 16 bits.
  constexpr std::size_t kMostDivisions = std::numeric_limits<int16_t>::max();
  const std::size_t read = variable.divisions.size();
  if (read >= kMostDivisions) return "more than " + std::to_string(kMostDivisions) + " divisions";
  const std::string division = "division " + std::to_string(read + 1);
  const auto is = [&](int error) { return variable.failure == util::RuntimeError(error).what(); };
  if (is(util::kObjectNotSet)) return division + " lacks low, high or color";
  if (is(util::kOverflow)) return division + " has a number out of range";
  return division + ": " + variable.failure;
}

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
