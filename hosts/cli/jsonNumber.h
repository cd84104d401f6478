#pragma once

namespace cli {

// The double of the shortest text of the single: 0.1 and not 0.10000000149.
double asWritten(float value);

}  // namespace cli
