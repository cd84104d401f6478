#include "diagnosis/Diagnosis.h"

#include <algorithm>

namespace cli::diagnosis {

const Check* Diagnosis::firstFailure() const {
  const auto failed = std::ranges::find(checks, State::Failed, &Check::state);
  return failed == checks.end() ? nullptr : &*failed;
}

Verdict verdictOf(const std::vector<Check>& checks) {
  Verdict verdict = Verdict::Drawable;
  for (const Check& check : checks) {
    if (check.state != State::Failed || check.rule == kTrialRule) continue;
    static constexpr Verdict verdicts[] = {Verdict::DoesNotOpen, Verdict::NoSection,
                                           Verdict::NoValues, Verdict::NotDrawn};
    verdict = std::min(verdict, verdicts[static_cast<std::size_t>(check.stage)]);
  }
  return verdict;
}

std::string verdictName(Verdict verdict) {
  static constexpr const char* names[] = {"unreadable", "does-not-open", "no-section",
                                          "no-values",  "not-drawn",     "drawable"};
  return names[static_cast<std::size_t>(verdict)];
}

std::string stageName(Stage stage) {
  static constexpr const char* names[] = {"opening", "section", "values", "drawing"};
  return names[static_cast<std::size_t>(stage)];
}

}  // namespace cli::diagnosis
