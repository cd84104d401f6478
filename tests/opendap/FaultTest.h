#pragma once

#include <chrono>

#include "OpendapTest.h"

namespace opendap_test {

// What the tests of faults wait for at most: two seconds, or three for an answer that keeps coming.
void waitAsEverywhere();

// A control that has drawn the tiny set, before something goes wrong with the server.
class FaultTest : public OpendapTest {
 protected:
  FaultTest();

  // The failure as a host is told of it: the library's text for the status in front and in a
  // box; below it the status, and words that say what a person can do.
  void expectToldOf(int status, const std::vector<std::string>& words);
  // The next call on a good address works, and gives the picture that was there before.
  void expectNextOneWorks();
  // What was printed in the picture before; it is still there when it is drawn again.
  const std::vector<std::string>& printedBefore() const { return printedBefore_; }

  // Ends a failed test when something takes longer than any time-out allows.
  class Watch {
   public:
    ~Watch();

   private:
    std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
  };

 private:
  std::vector<support::Operation> before_;
  std::vector<std::string> printedBefore_;
};

// A fault, the status that the library gives for it, and words of the account.
struct Told {
  const char* title;
  const char* fault;
  int status;
  std::vector<std::string> words;
};

void PrintTo(const Told& told, std::ostream* out);

}  // namespace opendap_test
