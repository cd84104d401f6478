#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace cli {

// Standard output. Every failure of writing is noticed: a full disk throws Failure, a closed
// pipe ReaderGone.
class Output {
 public:
  void write(std::string_view text);
  // Writes what is still held back; call it at the end.
  void finish();

 private:
  std::string held_;
};

// A line on standard error, introduced by the program's name; addresses in it lose user name and
// password.
void report(std::string_view text);

// Text as it is on standard error.
void writeToErrors(std::string_view text);

// Standard error is a terminal whose lines can be written over; and its width in characters.
bool errorsGoToATerminal();
int32_t errorsWidth();
// Standard output is a terminal, and NO_COLOR (when not empty) does not ask for plain text.
bool outputTakesColours();

// The text without the characters that a data set could otherwise use to steer the terminal:
// control characters, and those that turn the direction of writing. Each becomes a blank. Line
// feeds stay when they are wanted.
enum class LineFeeds { Keep, Replace };
std::string printable(std::string_view text, LineFeeds lineFeeds = LineFeeds::Replace);

// The number of characters of a text, as far as each takes one column.
std::size_t columnsOf(std::string_view text);
// The text with blanks behind it up to a number of columns.
std::string padded(std::string text, std::size_t columns);

// To be called before anything is opened. Makes sure that the three standard descriptors are
// taken, so that no file that is opened later is mistaken for one of them, and that a closed pipe
// or a limit on the size of files is an error of writing like any other.
void prepareWriting();

}  // namespace cli
