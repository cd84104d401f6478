#pragma once

#include <string>

namespace cli {

enum class InfoForm { Text, Json };

// Lists a data set on standard output. One that does not open is listed as far as it was
// catalogued; then Failure is thrown with the reason.
void info(const std::string& dataSet, InfoForm form);

}  // namespace cli
