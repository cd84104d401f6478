#include "infoCommand.h"

#include "dataSetFacts.h"
#include "failures.h"
#include "infoForms.h"
#include "terminal.h"

namespace cli {

void info(const std::string& dataSet, InfoForm form) {
  const DataSetFacts facts = listDataSet(dataSet);
  Output output;
  output.write(form == InfoForm::Json ? jsonForm(facts) : textForm(facts));
  output.finish();
  if (!facts.failure.empty()) throw Failure(facts.failure);
}

}  // namespace cli
