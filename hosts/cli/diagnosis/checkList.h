#pragma once

#include <optional>
#include <string>
#include <vector>

#include "diagnosis/Diagnosis.h"
#include "diagnosis/Recognition.h"
#include "diagnosis/headerFacts.h"

// The checks, a file for each part of the control's way through a data set.
namespace cli::diagnosis {

inline std::string quoted(const std::string& name) { return "`" + name + "`"; }
// "1 variable", "3 variables"
std::string counted(std::size_t count, const std::string& what);
// "a", "an `and N more`": what is said of the first of several.
std::string andMore(std::size_t others);

// A check that was made: failed when there is evidence against it.
Check checked(const std::string& rule, const std::string& title, Stage stage,
              const std::optional<Evidence>& against, Evidence inFavour);
// One that could not be made.
Check unreached(const std::string& rule, const std::string& title, Stage stage);

// The limits of the catalogue: names, dimensions, attributes.
void checkHeader(const Header& header, bool atAddress, std::vector<Check>& checks);
// Longitude, latitude, grid, time and vertical axis, items, and what their values must be.
void checkAxes(const Header& header, const Recognition& found, std::vector<Check>& checks);
// What keeps a data set that opens from being drawn: the direction of the axes, the time axis, the
// levels, and an item that can be read.
void checkSections(const Header& header, const Recognition& found,
                   const std::vector<VariableFinding>& variables, std::vector<Check>& checks);

// Every variable: whether it can be drawn, and if not why.
std::vector<VariableFinding> judgeVariables(const Header& header, const Recognition& found);

// What helps against what a warning says.
enum class Cure { None, Copy };

// Adds a warning, or its name to one that says the same.
void warn(std::vector<Warning>& warnings, const std::string& kind, const std::string& name,
          const std::string& text, Cure cure = Cure::None);

// What the control takes differently than one might think.
void warnOfSet(const Header& header, const Recognition& found, std::vector<Warning>& warnings);
void warnOfTime(const Header& header, const Recognition& found, std::vector<Warning>& warnings);
void warnOfLevels(const Header& header, const Recognition& found, std::vector<Warning>& warnings);
void warnOfGrid(const Header& header, const Recognition& found, std::vector<Warning>& warnings);
// Values are looked at in files only.
void warnOfValues(const Header& header, bool atAddress,
                  const std::vector<VariableFinding>& variables, std::vector<Warning>& warnings);

}  // namespace cli::diagnosis
