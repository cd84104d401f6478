#pragma once

#include <string>
#include <vector>

namespace cli::diagnosis {

// What a data set is held to, in the control's own order: what must hold for it to open, for a
// path to become a section, for the section's values to be read, and for them to be drawn.
enum class Stage { Opening, Section, Values, Drawing };

enum class State {
  Passed,
  Failed,
  Unreached,  // cannot be told, because of an earlier failure
};

// What decided a check: in words, and in its parts for programs.
struct Evidence {
  std::string finding;
  std::string name;   // of the variable, dimension or attribute
  std::string value;  // what it has
  std::string place;  // where it stands: "variable", "dimension", "attribute of `time`", ...
};

struct Check {
  std::string rule;  // a name that stays the same
  std::string title;
  Stage stage = Stage::Opening;
  State state = State::Unreached;
  Evidence evidence;
};

// Something the control takes without a word, though not as one might think.
struct Warning {
  std::string kind;                // a name that stays the same
  std::vector<std::string> names;  // of the variables concerned; none: the data set
  std::string text;
  bool mended = false;  // it makes pictures wrong, and a fitted copy has none of it
};

struct VariableFinding {
  std::string name, type;
  std::vector<std::string> dimensions;
  std::string units;
  std::string role;       // "longitude", "latitude", "time", "vertical"; empty for data
  bool listed = false;    // the control offers it as an item
  bool suited = false;    // nothing about the variable itself is against a section
  bool drawable = false;  // and nothing about the data set is
  std::string reason;     // why not
};

// How far the control comes. Each but the last names what fails.
enum class Verdict { Unreadable, DoesNotOpen, NoSection, NoValues, NotDrawn, Drawable };

struct Diagnosis {
  Verdict verdict = Verdict::Unreadable;
  std::string summary;  // the verdict in a sentence
  std::string format;   // of the file; empty when it could not be read
  std::vector<Check> checks;
  std::vector<VariableFinding> variables;
  std::vector<Warning> warnings;
  std::string command;  // the one that helps most; empty when none does
  std::string advice;   // what it is for, or why there is none

  const Check* firstFailure() const;
};

// The rule of the check that is the control's own word; all others are told from the header.
inline constexpr const char* kTrialRule = "trial";

// The verdict that follows from the checks but for the trial: what the control must come to.
Verdict verdictOf(const std::vector<Check>& checks);

// The name of a verdict for programs: "drawable", "no-section", ...
std::string verdictName(Verdict verdict);
// "opening", "section", "values", "drawing"
std::string stageName(Stage stage);

}  // namespace cli::diagnosis
