#include "util/lastError.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "util/RuntimeError.h"

namespace {

TEST(RuntimeError, DescribesTheClassicNumbers) {
  const std::pair<int, const char*> cases[] = {{util::kOverflow, "Overflow"},
                                               {util::kOutOfMemory, "Out of memory"},
                                               {util::kSubscript, "Subscript out of range"},
                                               {util::kDivisionByZero, "Division by zero"},
                                               {util::kTypeMismatch, "Type mismatch"}};
  for (const auto& [number, text] : cases) {
    try {
      util::raise(number);
    } catch (const util::RuntimeError& error) {
      EXPECT_EQ(error.number(), number);
      EXPECT_STREQ(error.what(), text);
    }
  }
}

template <class Thrown>
util::ErrorInfo infoOf(const Thrown& thrown) {
  try {
    throw thrown;
  } catch (...) {
    return util::currentError();
  }
}

TEST(RuntimeError, NumbersEveryException) {
  EXPECT_EQ(infoOf(util::RuntimeError(6)).number, 6);
  EXPECT_EQ(infoOf(std::bad_alloc()).number, 7);
  EXPECT_EQ(infoOf(std::bad_alloc()).description, "Out of memory");
  EXPECT_EQ(infoOf(std::length_error("x")).number, 7);
  EXPECT_EQ(infoOf(std::runtime_error("broken")).number, 5);
  EXPECT_EQ(infoOf(std::runtime_error("broken")).description, "broken");
  EXPECT_EQ(infoOf(42).number, 5);
}

TEST(LastError, CarriesTheTagOfTheRoutine) {
  try {
    util::raise(util::kSubscript);
  } catch (...) {
    util::reportBracketed("ReadVSData");
  }
  EXPECT_EQ(util::LastError, "[ReadVSData] Error: Subscript out of range");
  try {
    util::raise(util::kDivisionByZero);
  } catch (...) {
    util::reportTagged("ModColor GetKewCol");
  }
  EXPECT_EQ(util::LastError, "ModColor GetKewCol: 11, KelvaneCtl, Division by zero");
}

}  // namespace
