#include <exception>

#include "commandLine.h"
#include "failures.h"
#include "terminal.h"

namespace {

void print(const std::string& text) {
  cli::Output output;
  output.write(text);
  output.finish();
}

int run(int argc, char** argv) {
  cli::CommandLine commandLine;
  try {
    commandLine.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    print(commandLine.helpText());
    return 0;
  } catch (const CLI::CallForVersion& version) {
    print(std::string(version.what()) + "\n");
    return 0;
  } catch (const CLI::ParseError& error) {
    cli::report(std::string(error.what()) + "\nTry '" + commandLine.helpHint() + "'.");
    return cli::kExitUsage;
  }
  commandLine.run();
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  cli::prepareWriting();
  try {
    return run(argc, argv);
  } catch (const cli::ReaderGone&) {
    return 0;
  } catch (const std::bad_alloc&) {
    cli::report("The memory does not suffice.");
  } catch (const std::exception& error) {
    cli::report(error.what());
  }
  return cli::kExitFailure;
}
