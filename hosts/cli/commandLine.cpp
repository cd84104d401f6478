#include "commandLine.h"

#include "valuesCommand.h"

namespace cli {
namespace {

constexpr const char* kDataSetHelp = "netCDF file, or address of an OPeNDAP data set";

// Takes the value of an option through one of the readers of optionText.h.
template <class Value, class Reader>
void store(const char* name, const std::string& text, Value& value, Reader reader,
           const char* wanted) {
  const auto found = reader(text);
  if (!found) throw CLI::ValidationError(name, "'" + text + "' is not " + wanted);
  value = *found;
}

// An option of one text, whatever characters the text starts with.
template <class Value, class Reader>
CLI::Option* addRead(CLI::App& command, const char* name, const char* type, Value& value,
                     Reader reader, const char* wanted, const char* help) {
  return command
      .add_option_function<std::string>(
          name,
          [name, &value, reader, wanted](const std::string& text) {
            store(name, text, value, reader, wanted);
          },
          help)
      ->type_name(type);
}

}  // namespace

CommandLine::CommandLine()
    : app_("Draws and lists vertical sections of gridded ocean and atmosphere data sets.",
           "kelvane") {
  app_.require_subcommand(1);
  app_.set_version_flag("--version", "kelvane " KELVANE_VERSION);
  app_.set_help_flag("-h,--help", "Print this help");
  defineInfo();
  defineDraw();
  defineValues();
}

void CommandLine::defineInfo() {
  info_ = app_.add_subcommand("info", "List what a data set holds and what can be drawn");
  info_->add_option("file", infoDataSet_, kDataSetHelp)->required()->type_name("");
  info_->add_flag("--json", infoJson_, "List as JSON");
}

void CommandLine::defineDraw() {
  draw_ = app_.add_subcommand("draw", "Draw a section into a picture file");
  defineSection(*draw_, drawRequest_.section);
  addRead(*draw_, "--size", "WxH", drawRequest_.size, readSize,
          "a size like 1000x600 (1 to 32767 pixels a side)",
          "Width and height in pixels (default 1000x600)");
  draw_
      ->add_option_function<std::string>(
          "-o,--output",
          [this](const std::string& name) {
            store("--output", name, drawRequest_.format, formatOf,
                  "a name ending in .png, .svg or .pdf");
            drawRequest_.output = name;
          },
          "Picture file; .png, .svg or .pdf says which kind")
      ->required()
      ->type_name("FILE");
  draw_->footer(
      "Example: kelvane draw ocean.nc --var temp --path \"285.25,32 292.75,35.1\" -o section.png");
}

void CommandLine::defineValues() {
  values_ = app_.add_subcommand("values", "List the values of a section as CSV");
  defineSection(*values_, valuesRequest_);
}

void CommandLine::defineSection(CLI::App& command, SectionRequest& request) {
  command.add_option("file", request.dataSet, kDataSetHelp)->required()->type_name("");
  command.add_option("--var", request.variable, "Variable (default: the first that can be drawn)")
      ->type_name("NAME");
  addRead(command, "--path", "POINTS", request.path, readPath,
          "a path like \"285.25,32 292.75,35.1\": longitude,latitude of two points or more",
          "Longitude,latitude of each point, points separated by blanks")
      ->required();
  addRead(command, "--time", "N", request.step, readStep, "the number of a time step, 1 or more",
          "Time step, counted from 1 (default 1)");
}

void CommandLine::run() const {
  if (info_->parsed()) info(infoDataSet_, infoJson_ ? InfoForm::Json : InfoForm::Text);
  if (draw_->parsed()) draw(drawRequest_);
  if (values_->parsed()) values(valuesRequest_);
}

std::string CommandLine::helpHint() const {
  for (const CLI::App* command : app_.get_subcommands()) {
    return "kelvane " + command->get_name() + " --help";
  }
  return "kelvane --help";
}

}  // namespace cli
