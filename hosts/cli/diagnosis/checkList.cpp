#include "diagnosis/checkList.h"

#include <utility>

namespace cli::diagnosis {

std::string counted(std::size_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

std::string andMore(std::size_t others) {
  return others == 0 ? std::string() : ", and " + std::to_string(others) + " more";
}

Check checked(const std::string& rule, const std::string& title, Stage stage,
              const std::optional<Evidence>& against, Evidence inFavour) {
  return {rule, title, stage, against ? State::Failed : State::Passed,
          against ? *against : std::move(inFavour)};
}

Check unreached(const std::string& rule, const std::string& title, Stage stage) {
  return {rule, title, stage, State::Unreached, {}};
}

void warn(std::vector<Warning>& warnings, const std::string& kind, const std::string& name,
          const std::string& text, Cure cure) {
  for (Warning& warning : warnings) {
    if (warning.kind != kind || warning.text != text) continue;
    warning.names.push_back(name);
    return;
  }
  warnings.push_back({kind, {}, text, cure == Cure::Copy});
  if (!name.empty()) warnings.back().names.push_back(name);
}

}  // namespace cli::diagnosis
