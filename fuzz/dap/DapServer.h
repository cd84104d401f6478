#pragma once

#include <atomic>
#include <cstdint>

namespace fuzz {

// Starts a server on the loopback, in a thread that ends with the process; returns its port, or -1.
// Which of its answers are damaged, and how, follows from the number of the case.
int startServer(const std::atomic<uint64_t>& caseNumber);

}  // namespace fuzz
