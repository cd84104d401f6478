#pragma once

#include <functional>

namespace form {

// Finds out how many time steps there are from nothing but stepping on: advance(n) goes on by n
// from the step that is shown and answers with the new step, which is 1 when the sum is beyond the
// last. The first step must be shown. Takes about twice as many calls as the number has binary
// digits, and leaves any step shown. 0 when the answers make no sense.
int countSteps(const std::function<int(int)>& advance);

}  // namespace form
