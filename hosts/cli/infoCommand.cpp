#include "infoCommand.h"

#include "diagnosis/diagnose.h"
#include "failures.h"
#include "infoForms.h"
#include "sectionRequest.h"
#include "terminal.h"

namespace cli {

void info(const std::string& dataSet, InfoForm form) {
  const auto [facts, diagnosis] = diagnosis::examine(dataSet);
  Output output;
  if (form == InfoForm::Json) {
    output.write(jsonForm(facts, diagnosis));
  } else {
    output.write(textForm(facts));
    // Of what cannot be read at all there is nothing to say but why.
    if (diagnosis.verdict != diagnosis::Verdict::Unreadable) output.write(textForm(diagnosis));
  }
  output.finish();
  if (!facts.failure.empty()) throw Failure(aboutDataSet(facts.dataSet, facts.failure));
}

}  // namespace cli
