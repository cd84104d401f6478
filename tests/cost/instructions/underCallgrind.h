#pragma once

namespace cost {

// The environment's name for the file beside which callgrind leaves its reports.
inline constexpr const char* kReportName = "KELVANE_CALLGRIND_REPORT";

// Runs this program again under callgrind; its exit status.
int runUnderCallgrind(char** arguments);

}  // namespace cost
