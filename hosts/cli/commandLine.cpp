#include "commandLine.h"

#include <algorithm>

#include "netcdf/remoteName.h"

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

void defineSection(CLI::App& command, SectionRequest& request) {
  command.add_option("file", request.dataSet, kDataSetHelp)->required()->type_name("");
  command.add_option("--var", request.variable, "Variable (default: the first that can be drawn)")
      ->type_name("NAME");
  addRead(command, "--path", "POINTS", request.path, readPath,
          "a path like \"285.25,32 292.75,35.1\": longitude,latitude of two points or more",
          "Longitude,latitude of each point, points separated by blanks")
      ->required();
}

void defineStep(CLI::App& command, int32_t& step) {
  addRead(command, "--time", "N", step, readStep, "the number of a time step, 1 or more",
          "Time step, counted from 1 (default 1)");
}

void defineView(CLI::App& command, ViewRequest& view) {
  CLI::Option* contours = command.add_flag("--contours", view.contours, "Draw contour lines");
  CLI::Option* profile = command.add_flag(
      "--profile", view.profile, "Draw a profile at each point of the path, not the section");
  command.add_flag("--single", view.single, "Draw all profiles in one graph")->needs(profile);
  CLI::Option* key =
      command.add_option("--key", view.keyFile, "Colours of the variable's key in a KEW file")
          ->type_name("FILE.kew");
  CLI::Option* autoKey =
      command.add_flag("--auto-key", view.autoKey,
                       "Colours of the data set's own KEW file (ocean.KEW for ocean.nc);\n"
                       "where there is none, a key of ten random colours is made and SAVED there");
  key->excludes(autoKey);
  // Profiles have neither cells to colour nor contour lines.
  profile->excludes(contours)->excludes(key)->excludes(autoKey);
}

void definePicture(CLI::App& command, PictureRequest& request) {
  defineSection(command, request.section);
  defineView(command, request.view);
  addRead(command, "--size", "WxH", request.size, readSize,
          "a size like 1000x600 (1 to 32767 pixels a side)",
          "Width and height in pixels, 1 to 32767 each, in a PNG file 67108864 pixels\n"
          "in all at most (default 1000x600)");
}

// The output option: its text goes to take, the format is that of the file it names.
CLI::Option* addOutput(CLI::App& command, const char* type, const char* help,
                       std::function<void(const std::string&)> take) {
  return command.add_option_function<std::string>("-o,--output", std::move(take), help)
      ->required()
      ->type_name(type);
}

void storeFormat(const std::string& name, PictureFormat& format) {
  store("--output", name, format, formatOf, "a name ending in .png, .svg or .pdf");
}

void checkSize(const PictureRequest& request) {
  if (isPossible(request.size, request.format)) return;
  throw CLI::ValidationError(
      "--size", std::to_string(request.size.width) + "x" + std::to_string(request.size.height) +
                    " are too many pixels for a PNG file, which has " +
                    std::to_string(kPixelLimit) + " at most; .svg and .pdf have no such limit");
}

// Refuses arguments that nothing takes, in the order they were given in.
[[noreturn]] void refuseExtras(std::vector<std::string> found, int argc, const char* const* argv) {
  std::vector<std::string> extras;
  for (int at = 1; at < argc; ++at) {
    const auto extra = std::ranges::find(found, std::string(argv[at]));
    if (extra == found.end()) continue;
    if (*extra != "--") extras.push_back(*extra);
    found.erase(extra);
  }
  std::string text = extras.size() > 1 ? "The following arguments were not expected:"
                                       : "The following argument was not expected:";
  for (const std::string& extra : extras) text += " " + extra;
  throw CLI::ExtrasError(text, CLI::ExitCodes::ExtrasError);
}

// Names the word that stands where a command should; no word: returns.
void refuseCommand(int argc, const char* const* argv) {
  if (argc < 2 || argv[1][0] == '-') return;
  throw CLI::ExtrasError(std::string("'") + argv[1] + "' is no subcommand",
                         CLI::ExitCodes::ExtrasError);
}

// The command as it was typed, for the history of what it makes.
std::string commandText(int argc, const char* const* argv) {
  std::string text = "kelvane";
  for (int at = 1; at < argc; ++at) {
    const std::string word = ocxNetNc::withoutCredentials(argv[at]);
    const bool plain = word.find_first_of(" \t\n'\"") == std::string::npos;
    text += plain ? " " + word : " \"" + word + "\"";
  }
  return text;
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
  defineAnimate();
  defineValues();
  defineKey();
  defineFit();
}

void CommandLine::defineInfo() {
  info_ = app_.add_subcommand("info", "Say what of a data set can be drawn, and why not the rest");
  info_->add_option("file", infoDataSet_, kDataSetHelp)->required()->type_name("");
  info_->add_flag("--json", infoJson_, "List as JSON");
}

void CommandLine::defineDraw() {
  draw_ = app_.add_subcommand("draw", "Draw a section into a picture file");
  definePicture(*draw_, drawRequest_.picture);
  defineStep(*draw_, drawRequest_.step);
  addOutput(*draw_, "FILE", "Picture file; .png, .svg or .pdf says which kind",
            [this](const std::string& name) {
              storeFormat(name, drawRequest_.picture.format);
              drawRequest_.output = name;
            });
  draw_->footer(
      "Example: kelvane draw ocean.nc --var temp --path \"285.25,32 292.75,35.1\" -o section.png");
}

void CommandLine::defineAnimate() {
  animate_ = app_.add_subcommand("animate", "Draw every time step into a picture file of its own");
  definePicture(*animate_, animateRequest_.picture);
  addRead(*animate_, "--times", "A:B", animateRequest_.steps, readSteps,
          "a range of time steps like 3:9, 3:, :9 or 3, counted from 1",
          "Time steps, both included; also A:, :B or A alone (default: all)");
  addOutput(*animate_, "PATTERN",
            "Picture files: %d is the number of the time step, %03d in three digits,\n"
            "%% a percent sign; .png, .svg or .pdf says which kind",
            [this](const std::string& text) {
              store("--output", text, animateRequest_.output, FramePattern::read,
                    "a pattern with one %d or %03d for the time step");
              storeFormat(animateRequest_.output.name(1), animateRequest_.picture.format);
            });
  animate_->footer(
      "Example: kelvane animate ocean.nc --path \"285.25,32 292.75,35.1\" -o month-%02d.png");
}

void CommandLine::defineValues() {
  values_ = app_.add_subcommand("values", "List the values of a section as CSV");
  defineSection(*values_, valuesRequest_.section);
  defineStep(*values_, valuesRequest_.step);
}

void CommandLine::defineKey() {
  key_ = app_.add_subcommand("key", "List the colour keys of a KEW file");
  key_->add_option("file", keyFile_, "KEW file")->required()->type_name("");
  key_->add_flag("--json", keyJson_, "List as JSON");
}

void CommandLine::defineFit() {
  fit_ = app_.add_subcommand("fit", "Write a copy of a data set that can be drawn");
  fit_->add_option("in", fitRequest_.input, kDataSetHelp)->required()->type_name("");
  fit_->add_option("out", fitRequest_.output, "The copy, a netCDF file; replaced if it exists")
      ->required()
      ->type_name("");
  fit_->add_option("--group", fitRequest_.group, "Copy a group of a netCDF-4 file, like /forecast")
      ->type_name("PATH");
  addRead(*fit_, "--vars", "A,B", fitRequest_.variables, fit::readNames,
          "names with commas between them", "Copy these variables and what belongs to them");
  addRead(*fit_, "--times", "A:B", fitRequest_.steps, readSteps,
          "a range of time steps like 3:9, 3:, :9 or 3, counted from 1",
          "Time steps, both included; also A:, :B or A alone (default: all)");
  addRead(*fit_, "--box", "W,S,E,N", fitRequest_.box, fit::readBox,
          "a box like -80,20,-10,60: west, south, east, north in degrees",
          "Cut to a box; the longitudes run from W eastward to E");
  fit_->add_option_function<std::vector<std::string>>(
          "--select",
          [this](const std::vector<std::string>& texts) {
            for (const std::string& text : texts) {
              store("--select", text, fitRequest_.selected.emplace_back(), fit::readSelected,
                    "a dimension and an index from 1, like run=2");
            }
          },
          "Take one index of a dimension that is no axis; may be given again")
      ->type_name("DIM=N")
      ->expected(1)
      ->take_all();
  CLI::Option* grid = addRead(*fit_, "--grid", "DX,DY", fitRequest_.grid, fit::readSpacing,
                              "a spacing in degrees like 0.25 or 0.25,0.2",
                              "Put everything on a regular grid of this spacing, degrees");
  addRead(*fit_, "--method", "NAME", fitRequest_.method, fit::readMethod,
          "one of nearest and bilinear",
          "How to find values on that grid: nearest (default) or bilinear")
      ->needs(grid);
  fit_->footer("Example: kelvane fit era5.nc fitted.nc --vars t,u --box -80,20,-10,60");
}

void CommandLine::parse(int argc, const char* const* argv) {
  try {
    app_.parse(argc, argv);
  } catch (const CLI::ExtrasError&) {
    refuseExtras(app_.remaining(true), argc, argv);
  } catch (const CLI::RequiredError&) {
    if (app_.get_subcommands().empty()) refuseCommand(argc, argv);
    throw;
  }
  if (fit_->parsed()) fitRequest_.commandText = commandText(argc, argv);
  if (draw_->parsed()) checkSize(drawRequest_.picture);
  if (animate_->parsed()) checkSize(animateRequest_.picture);
}

void CommandLine::run() const {
  if (info_->parsed()) info(infoDataSet_, infoJson_ ? InfoForm::Json : InfoForm::Text);
  if (draw_->parsed()) draw(drawRequest_);
  if (animate_->parsed()) animate(animateRequest_);
  if (values_->parsed()) values(valuesRequest_);
  if (fit_->parsed()) fitDataSet(fitRequest_);
  if (key_->parsed()) listKeys(keyFile_, keyJson_ ? KeyForm::Json : KeyForm::Text);
}

std::string CommandLine::helpHint() const {
  for (const CLI::App* command : app_.get_subcommands()) {
    return "kelvane " + command->get_name() + " --help";
  }
  return "kelvane --help";
}

}  // namespace cli
