#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <charconv>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <optional>
#include <string>

#include "../files/Random.h"
#include "DapServer.h"
#include "readAll.h"

// tourAnswers FIRST COUNT: lets a client read damaged answers of a server, case after case, and
// says which cases ended the client or held it for more than 20 seconds. The same case is the same
// damage everywhere. Ends with 1 when there was any, or when of many cases none could be opened.
namespace {

constexpr uint64_t kCasesOfOneClient = 500;
constexpr uint64_t kDone = ~uint64_t{0};
constexpr unsigned kMostSeconds = 20;
constexpr int kNoServer = 3;  // a client's exit status
// Of so many cases some can be opened; when none can, nothing was read.
constexpr uint64_t kEnough = 100;

// What a host may write behind the address: constraints, and parameters of the client.
std::string behindTheAddress(uint64_t caseNumber) {
  static const char* const kTexts[] = {
      "", "?lon[0:3]", "?temp[0:1][0:2:39][3][0:11],lon", "?temp.temp[0][0][0:8][0:11]",
      "?seq.a,n", "?names,h.lat", "?lon&seq.a<2", "#noprefetch", "#wholevar", "#nocache",
      "?temp#wholevar", "?st.a", "?st[0:1].b,flag[2:5]"};
  fuzz::Random random(caseNumber * 31 + 7);
  if (random.oneIn(2)) return "";
  return kTexts[random.below(std::size(kTexts))];
}

std::optional<uint64_t> numberOf(const char* text) {
  uint64_t number = 0;
  const char* end = text + std::strlen(text);
  const auto [rest, problem] = std::from_chars(text, end, number);
  if (problem != std::errc() || rest != end) return std::nullopt;
  return number;
}

struct Report {
  uint64_t caseNumber = 0;
  fuzz::Counts counts;
};

[[noreturn]] void runClient(uint64_t first, uint64_t end, int out) {
  static std::atomic<uint64_t> caseNumber = first;
  const int port = fuzz::startServer(caseNumber);
  if (port < 0) _exit(kNoServer);
  Report report;
  for (; caseNumber < end; ++caseNumber) {
    report.caseNumber = caseNumber;
    if (write(out, &report, sizeof report) != sizeof report) _exit(1);
    alarm(kMostSeconds);
    const std::string address = "http://127.0.0.1:" + std::to_string(port) + "/set";
    fuzz::readAll(address + behindTheAddress(caseNumber), report.counts);
  }
  report.caseNumber = kDone;
  _exit(write(out, &report, sizeof report) == sizeof report ? 0 : 1);
}

[[noreturn]] void fail(const char* reason) {
  std::fprintf(stderr, "tourAnswers: %s\n", reason);
  std::exit(2);
}

// Runs a client; the case that it ended in, or kDone. Adds up what it read until then.
uint64_t watchClient(uint64_t first, uint64_t end, fuzz::Counts& sum) {
  int ends[2];
  if (pipe(ends) != 0) fail("no pipe");
  const pid_t client = fork();
  if (client < 0) fail("no process");
  if (client == 0) runClient(first, end, ends[1]);
  close(ends[1]);
  Report report{first, {}};
  for (Report next; read(ends[0], &next, sizeof next) == sizeof next;) report = next;
  close(ends[0]);
  int status = 0;
  waitpid(client, &status, 0);
  if (WIFEXITED(status) && WEXITSTATUS(status) == kNoServer) fail("no server");
  sum.opened += report.counts.opened;
  sum.valuesRead += report.counts.valuesRead;
  sum.valuesRefused += report.counts.valuesRefused;
  return report.caseNumber;
}

}  // namespace

int main(int argc, char** argv) {
  const auto first = numberOf(argc == 3 ? argv[1] : "");
  const auto count = numberOf(argc == 3 ? argv[2] : "");
  if (!first || !count) fail("wants FIRST COUNT");
  std::signal(SIGPIPE, SIG_IGN);
  setenv("no_proxy", "127.0.0.1", 1);
  const uint64_t end = *first + *count;
  fuzz::Counts counts;
  int deaths = 0;
  for (uint64_t at = *first; at < end;) {
    const uint64_t next = std::min(end, at + kCasesOfOneClient);
    const uint64_t last = watchClient(at, next, counts);
    at = last == kDone ? next : last + 1;
    if (last == kDone) continue;
    ++deaths;
    std::printf("case %llu ended the client\n", static_cast<unsigned long long>(last));
  }
  std::printf("%llu cases: %ld data sets opened, %ld readings gave values, %ld none; %d deaths\n",
              static_cast<unsigned long long>(*count), counts.opened, counts.valuesRead,
              counts.valuesRefused, deaths);
  const bool nothing = counts.opened == 0 && *count >= kEnough;
  if (nothing) std::puts("none could be opened: nothing was read");
  return deaths == 0 && !nothing ? 0 : 1;
}
