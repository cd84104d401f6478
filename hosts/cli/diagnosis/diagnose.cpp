#include "diagnosis/diagnose.h"

#include "BlankPictureBox.h"
#include "TerminalDesktop.h"
#include "diagnosis/checkList.h"
#include "diagnosis/remedy.h"
#include "diagnosis/trial.h"
#include "failures.h"
#include "netcdf/ncf.h"
#include "netcdf/remoteName.h"
#include "netcdf/status.h"
#include "section/drawItems.h"

namespace cli::diagnosis {
namespace {

using ocxNetNc::ncf;

// Reading the header anew overwrites the control's catalogue; this puts it back.
class KeptCatalogue {
 public:
  KeptCatalogue() : ncf_(ncf), items_(KelvaneMain::DrawItems) {}
  ~KeptCatalogue() {
    ocxNetNc::NcClose();
    ncf = ncf_;
    ncf.NcId = -1;
    KelvaneMain::DrawItems = items_;
  }
  KeptCatalogue(const KeptCatalogue&) = delete;
  KeptCatalogue& operator=(const KeptCatalogue&) = delete;

 private:
  ocxNetNc::Ncf ncf_;
  util::OneBased<KelvaneMain::DrawItem> items_;
};

constexpr const char* kOpenTitle = "The data set is there and can be read";

void addChecks(const Header& header, const Recognition& found, Diagnosis& diagnosis) {
  std::vector<Check>& checks = diagnosis.checks;
  // The library makes every data set at an address look like a classic file.
  const bool atAddress = ocxNetNc::isAddress(ncf.NcFileName);
  diagnosis.format = atAddress ? "OPeNDAP" : formatName(header.format);
  checks.push_back(checked("readable", kOpenTitle, Stage::Opening, std::nullopt,
                           {diagnosis.format + ", " + counted(header.dims.size(), "dimension") +
                                ", " + counted(header.vars.size(), "variable"),
                            "", diagnosis.format, "data set"}));
  checkHeader(header, atAddress, checks);
  checkAxes(header, found, checks);
  diagnosis.variables = judgeVariables(header, found);
  checkSections(header, found, diagnosis.variables, checks);
  warnOfSet(header, found, diagnosis.warnings);
  warnOfTime(header, found, diagnosis.warnings);
  warnOfLevels(header, found, diagnosis.warnings);
  warnOfGrid(header, found, diagnosis.warnings);
  warnOfValues(header, atAddress, diagnosis.variables, diagnosis.warnings);
}

// What the control itself makes of the data set.
void addTrial(const DataSetFacts& facts, control::KelvaneCtl& control, TerminalDesktop& desktop,
              Diagnosis& diagnosis) {
  constexpr const char* title = "The control draws a short section";
  Trial trial{Verdict::DoesNotOpen, facts.failure, "", 0};
  if (facts.failure.empty()) {
    std::string item;
    for (const VariableFinding& variable : diagnosis.variables) {
      if (item.empty() && variable.suited) item = variable.name;
    }
    trial = tryShortSection(control, desktop, item);
  }
  diagnosis.verdict = trial.verdict;
  std::optional<Evidence> against;
  if (trial.verdict != Verdict::Drawable) {
    const std::string said =
        trial.message.empty() ? "it gives no reason" : "it says: " + trial.message;
    against = Evidence{said, trial.item, trial.message, "error message"};
  }
  const Stage stages[] = {Stage::Opening, Stage::Opening, Stage::Section,
                          Stage::Values,  Stage::Drawing, Stage::Drawing};
  diagnosis.checks.push_back(checked(
      kTrialRule, title, stages[static_cast<std::size_t>(trial.verdict)], against,
      {quoted(trial.item) + " along " + counted(static_cast<std::size_t>(trial.columns), "column"),
       trial.item, std::to_string(trial.columns), "columns"}));
}

// What is against the whole data set is against each of its variables.
void judgeInTheEnd(Diagnosis& diagnosis) {
  for (VariableFinding& variable : diagnosis.variables) {
    variable.drawable = variable.suited && diagnosis.verdict == Verdict::Drawable;
    if (variable.suited && !variable.drawable) {
      variable.reason = "but for the failed checks it could be drawn";
    }
  }
}

std::string summaryOf(const Diagnosis& diagnosis) {
  const Check* failure = diagnosis.firstFailure();
  const std::string because = failure == nullptr ? "" : ": " + failure->evidence.finding;
  switch (diagnosis.verdict) {
    case Verdict::Unreadable:
      return "It cannot be read" + because;
    case Verdict::DoesNotOpen:
      return "The control does not open it" + because;
    case Verdict::NoSection:
      return "It opens, but no section can be built" + because;
    case Verdict::NoValues:
      return "It opens, but no section can be read" + because;
    case Verdict::NotDrawn:
      return "Sections can be read, but not drawn" + because;
    case Verdict::Drawable:
      break;
  }
  std::size_t count = 0;
  for (const VariableFinding& variable : diagnosis.variables) count += variable.drawable ? 1 : 0;
  return "Sections of " + counted(count, "variable") + " can be drawn";
}

// Nothing but the opening was tried, and it failed.
Diagnosis unreadable(const std::string& reason) {
  Diagnosis diagnosis;
  diagnosis.checks.push_back(
      checked("readable", kOpenTitle, Stage::Opening, Evidence{reason, "", "", "data set"}, {}));
  diagnosis.summary = summaryOf(diagnosis);
  diagnosis.advice = "No command helps before it can be read.";
  return diagnosis;
}

}  // namespace

Examination examine(const std::string& dataSet) {
  BlankPictures pictures;
  TerminalDesktop desktop;
  control::KelvaneCtl control(pictures.pictures(), desktop);
  Examination result;
  result.facts = listDataSet(control, dataSet);
  const std::string& failure = result.facts.failure;
  Header header;
  Recognition found;
  {
    const KeptCatalogue kept;
    const platform::DesktopScope scope(desktop);
    if (ocxNetNc::NcReopen(1) < 0) {
      result.diagnosis = unreadable(failure);
      return result;
    }
    try {
      header = readShownHeader(ncf.NcId);
    } catch (const Failure& refusal) {
      result.diagnosis = unreadable(failure.empty() ? refusal.what() : failure);
      return result;
    }
    found = recognise(header);
    addChecks(header, found, result.diagnosis);
  }
  addTrial(result.facts, control, desktop, result.diagnosis);
  judgeInTheEnd(result.diagnosis);
  result.diagnosis.summary = summaryOf(result.diagnosis);
  findRemedy(dataSet, header, found, result.diagnosis);
  return result;
}

}  // namespace cli::diagnosis
