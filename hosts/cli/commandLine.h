#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "drawCommand.h"
#include "infoCommand.h"

namespace cli {

// The commands and options of the program. parse() fills in what was asked for and throws
// CLI::ParseError for help texts and for every error of usage.
class CommandLine {
 public:
  CommandLine();
  CommandLine(const CommandLine&) = delete;
  CommandLine& operator=(const CommandLine&) = delete;

  void parse(int argc, const char* const* argv) { app_.parse(argc, argv); }
  // Does what was asked for.
  void run() const;

  std::string helpText() const { return app_.help(); }
  // What to try after an error of usage: "kelvane draw --help".
  std::string helpHint() const;

 private:
  void defineInfo();
  void defineDraw();
  void defineValues();
  static void defineSection(CLI::App& command, SectionRequest& request);

  CLI::App app_;
  CLI::App* info_ = nullptr;
  CLI::App* draw_ = nullptr;
  CLI::App* values_ = nullptr;
  std::string infoDataSet_;
  bool infoJson_ = false;
  DrawRequest drawRequest_;
  SectionRequest valuesRequest_;
};

}  // namespace cli
