#pragma once

#include <string>

#include "diagnosis/Diagnosis.h"
#include "diagnosis/Recognition.h"

namespace cli::diagnosis {

// Sets the command that helps most, and the advice: a section of what can be drawn, a fitted copy
// of what can be mended, or why neither.
void findRemedy(const std::string& dataSet, const Header& header, const Recognition& found,
                Diagnosis& diagnosis);

// A word of a command line, in quotes where a shell needs them.
std::string shellWord(const std::string& word);
// The same for the name of a file, which must not pass for an option.
std::string fileWord(const std::string& name);

}  // namespace cli::diagnosis
