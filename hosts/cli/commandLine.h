#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "animateCommand.h"
#include "drawCommand.h"
#include "fitCommand.h"
#include "infoCommand.h"
#include "keyCommand.h"
#include "valuesCommand.h"

namespace cli {

// The commands and options of the program. parse() fills in what was asked for and throws
// CLI::ParseError for help texts and for every error of usage.
class CommandLine {
 public:
  CommandLine();
  CommandLine(const CommandLine&) = delete;
  CommandLine& operator=(const CommandLine&) = delete;

  void parse(int argc, const char* const* argv);
  // Does what was asked for.
  void run() const;

  std::string helpText() const { return app_.help(); }
  // What to try after an error of usage: "kelvane draw --help".
  std::string helpHint() const;

 private:
  void defineInfo();
  void defineDraw();
  void defineAnimate();
  void defineValues();
  void defineKey();
  void defineFit();

  CLI::App app_;
  CLI::App* info_ = nullptr;
  CLI::App* draw_ = nullptr;
  CLI::App* animate_ = nullptr;
  CLI::App* values_ = nullptr;
  CLI::App* key_ = nullptr;
  CLI::App* fit_ = nullptr;
  std::string infoDataSet_;
  bool infoJson_ = false;
  DrawRequest drawRequest_;
  AnimateRequest animateRequest_;
  ValuesRequest valuesRequest_;
  fit::Request fitRequest_;
  std::string keyFile_;
  bool keyJson_ = false;
};

}  // namespace cli
