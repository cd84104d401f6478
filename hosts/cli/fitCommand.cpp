#include "fitCommand.h"

#include <filesystem>

#include "ProgressBar.h"
#include "UnfinishedFile.h"
#include "failures.h"
#include "fit/NetcdfInput.h"
#include "fit/Writer.h"
#include "fit/makePlan.h"
#include "fit/selfCheck.h"
#include "netcdf/remoteName.h"
#include "terminal.h"

namespace cli {
namespace {

void refuseSameFile(const fit::Request& request) {
  std::error_code ignored;
  if (std::filesystem::equivalent(request.input, request.output, ignored)) {
    throw Failure("The copy would replace the data set: " + request.output);
  }
  if (ocxNetNc::isAddress(request.output)) {
    throw Failure("The copy must be a file: " + ocxNetNc::withoutCredentials(request.output));
  }
}

std::set<int> write(const fit::Input& input, const fit::Plan& plan, const fit::Request& request,
                    const std::set<int>& refilled, const std::string& path) {
  fit::Writer writer(input, plan, request.method, refilled);
  ProgressBar progress(writer.blocks(), "block");
  return writer.write(path, [&](int32_t done) { progress.show(done); });
}

// Writes the copy and, if the control would misread values, once more with other numbers for what
// is missing.
fit::Plan makeCopy(const fit::Input& input, const fit::Request& request, const std::string& path) {
  std::set<int> refilled;
  for (;;) {
    fit::Plan plan = fit::makePlan(input, request, refilled);
    const std::set<int> misread = write(input, plan, request, refilled, path);
    if (misread.empty()) return plan;
    refilled.insert(misread.begin(), misread.end());
  }
}

void tell(const fit::Plan& plan, const std::string& name) {
  Output output;
  for (const std::string& change : plan.changes) output.write(printable(change) + "\n");
  if (plan.changes.empty()) output.write("Nothing had to be changed.\n");
  std::string drawn;
  for (const fit::PlanVar& variable : plan.vars) {
    if (variable.drawn) drawn += (drawn.empty() ? "" : ", ") + variable.name;
  }
  output.write(printable(name + ": can be drawn: " + drawn) + "\n");
  output.finish();
  for (const std::string& note : plan.notes) report("note: " + printable(note));
}

}  // namespace

void fitDataSet(const fit::Request& request) {
  refuseSameFile(request);
  fit::Plan plan;
  {
    const fit::NetcdfInput input(request.input, request.group);
    UnfinishedFile file(request.output);
    plan = makeCopy(input, request, file.path());
    fit::selfCheck(file.path(), plan);
    file.finish();
  }
  tell(plan, request.output);
}

}  // namespace cli
