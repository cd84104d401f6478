#include "util/RuntimeError.h"

#include <exception>
#include <new>

namespace util {
namespace {

const char* describe(int number) {
  switch (number) {
    case kInvalidCall:
      return "Invalid procedure call or argument";
    case kOverflow:
      return "Overflow";
    case kOutOfMemory:
      return "Out of memory";
    case kSubscript:
      return "Subscript out of range";
    case kDivisionByZero:
      return "Division by zero";
    case kTypeMismatch:
      return "Type mismatch";
    case kInputPastEnd:
      return "Input past end of file";
    case kObjectNotSet:
      return "Object variable or With block variable not set";
    default:
      return "Application-defined or object-defined error";
  }
}

}  // namespace

RuntimeError::RuntimeError(int number) : std::runtime_error(describe(number)), number_(number) {}

void raise(int number) { throw RuntimeError(number); }

ErrorInfo currentError() {
  try {
    throw;
  } catch (const RuntimeError& error) {
    return {error.number(), error.what()};
  } catch (const std::bad_alloc&) {
    return {kOutOfMemory, describe(kOutOfMemory)};
  } catch (const std::length_error&) {
    return {kOutOfMemory, describe(kOutOfMemory)};
  } catch (const std::exception& error) {
    return {kInvalidCall, error.what()};
  } catch (...) {
    return {kInvalidCall, describe(kInvalidCall)};
  }
}

}  // namespace util
