#pragma once

#include <string>
#include <vector>

namespace KelvaneMain {

struct ValueTick {
  float value = 0;
  std::string label;
};

// Ticks of the value axis: minimum, minimum + interval, .. up to maximum, which belongs to it
// when only rounding noise keeps a tick from meeting it. Labels are free of that noise. None
// without an interval above 0; more than 32767 are run-time error 6.
std::vector<ValueTick> valueTicks(float minimum, float maximum, float interval);

}  // namespace KelvaneMain
