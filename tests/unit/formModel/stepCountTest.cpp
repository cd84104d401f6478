#include "model/stepCount.h"

#include <gtest/gtest.h>

#include <functional>

namespace form {
namespace {

// A control with so many steps, as it answers to being stepped on.
struct Stepper {
  int steps;
  int shown = 1, calls = 0;
  int operator()(int n) {
    ++calls;
    shown = shown + n > steps ? 1 : shown + n;
    return shown;
  }
};

TEST(StepCount, IsFoundByStepping) {
  for (int steps = 1; steps <= 300; ++steps) {
    Stepper stepper{steps};
    EXPECT_EQ(countSteps(std::ref(stepper)), steps);
  }
}

TEST(StepCount, TakesFewCalls) {
  Stepper year{365 * 24}, long_{1'000'000};
  EXPECT_EQ(countSteps(std::ref(year)), 8760);
  EXPECT_LE(year.calls, 28);
  EXPECT_EQ(countSteps(std::ref(long_)), 1'000'000);
  EXPECT_LE(long_.calls, 40);
}

TEST(StepCount, IsNotGuessedFromSenselessAnswers) {
  EXPECT_EQ(countSteps([](int) { return 0; }), 0);
  EXPECT_EQ(countSteps([](int) { return -1; }), 0);
  int calls = 0;
  EXPECT_EQ(countSteps([&](int n) { return ++calls < 3 ? n + calls : 77; }), 0);
}

TEST(StepCount, EndsWithAControlThatNeverGoesBack) {
  int shown = 1;
  EXPECT_EQ(countSteps([&](int n) { return shown += n; }), 0);
}

TEST(StepCount, OfNoneIsOne) {
  // A time axis without steps goes back to the first one at once.
  EXPECT_EQ(countSteps([](int) { return 1; }), 1);
}

}  // namespace
}  // namespace form
