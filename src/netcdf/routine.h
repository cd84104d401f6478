#pragma once

#include <cstdint>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <string_view>

#include "util/OneBased.h"

// How the routines of this module fail inside: by exceptions that never leave them.
namespace ocxNetNc {

// A status other than 0 of the netCDF library.
struct LibraryRefusal {
  int32_t status;
};

// A data set that breaks a rule; the text is the whole message.
class DataProblem : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Throws LibraryRefusal for a status other than 0.
void checked(int status);

// Throws std::bad_alloc when memory is nearly at its end: the libraries below do not all survive
// that, and are not called then.
void requireReserve();

// Turns the exception being handled into the failure of a routine: always below 0. Call it inside a
// catch block.
int32_t routineFailure(std::string_view tag) noexcept;

// Runs the body of a routine and turns what it throws into the routine's failure. A refusal of
// the library goes its one way (libraryFailure), a data problem becomes LastError, any other
// exception is reported under the routine's tag and closes the data set. Result: the body's, or
// a value below 0: -1, or the library's status as a failure value.
// Without the reserve the body is not run.
template <class Body>
int32_t runRoutine(std::string_view tag, const Body& body) noexcept {
  try {
    requireReserve();
    return body();
  } catch (...) {
    return routineFailure(tag);
  }
}

// The same for a part of a routine that has asked for the reserve, one of many.
template <class Body>
int32_t runPart(std::string_view tag, const Body& body) noexcept {
  try {
    return body();
  } catch (...) {
    return routineFailure(tag);
  }
}

// The most elements that an attribute or a coordinate variable may have; a longer one would
// take memory that a 32-bit host does not have and counts as "out of memory".
inline constexpr int64_t kMostElements = int64_t{1} << 26;

// The pieces of a message with several lines, two line feeds between them.
std::string joinPieces(std::initializer_list<std::string_view> pieces);

}  // namespace ocxNetNc
