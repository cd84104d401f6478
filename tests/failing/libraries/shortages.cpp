// What the libraries below the control do when memory ends. A set is opened and drawn again and
// again, each time with another one of all allocations of the process failing; each time in a
// process of its own, so that a death is counted and not the end:
//   library_shortages KIND STEP
// KIND is classic or netcdf4, the format of the set, or picture: then the picture of a classic one
// is saved as well. Every STEP-th allocation fails, one a process. With
//   library_shortages KIND limit STEP
// the process gets a limit on its memory instead, of what it has and from 0 to 64 MiB more, by
// STEP KiB. Status 1 for any death, for a hang, for a result that is wrong or for a process that
// does not recover.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <new>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>

#include "control/KelvaneCtl.h"
#include "failing/libraries/Allocations.h"
#include "platform/cairo/CairoPictures.h"
#include "render/settings.h"
#include "section/sectionValues.h"
#include "support/NcMaker.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"
#include "util/lastError.h"

namespace {

constexpr unsigned kLongest = 20;  // seconds

enum Outcome { kUnaffected = 0, kRefused, kWrong, kNotRecovered, kException, kKinds };
constexpr const char* kNames[] = {"unaffected", "refused", "wrong", "not recovered", "exceptions"};

// An exception that came out of a member which has none.
struct Escaped {};

template <class Member>
auto withoutException(Member member) {
  try {
    return member();
  } catch (...) {
    throw Escaped();
  }
}

class Scene {
 public:
  explicit Scene(const std::string& kind) : saves_(kind == "picture") {
    support::makeTinySet(set_, kind == "netcdf4" ? NC_NETCDF4 : 0);
  }

  // The whole way. False when a member has refused.
  bool run() {
    support::resetState();
    platform::CairoPictures pictures(platform::CairoPictures::Kind::Pixels);
    platform::Desktop& desktop = platform::desktop();
    control::KelvaneCtl control(pictures.pictures(), desktop);
    control.Resize(200, 150);
    if (withoutException([&] { return control.NcFile(set_); }) != 1) return false;
    control.AddSection(350, 0);
    control.AddSection(358, 0);
    if (withoutException([&] { return control.EndSection(); }) != 1) return false;
    KelvaneMain::settings.ViewStyle = 1;
    withoutException([&] { control.Draw(); });
    if (saves_) pictures.savePng(folder_.file("picture.png"));
    return util::LastError.empty();
  }

  static std::string values() {
    std::ostringstream text;
    for (const float value : KelvaneMain::section_values.values()) text << value << ' ';
    return text.str();
  }

 private:
  support::TempFolder folder_;
  std::string set_ = folder_.file("set.nc");
  bool saves_;
};

// The n-th allocation fails for the extent of a scope.
class LostAllocation {
 public:
  explicit LostAllocation(uint64_t n) { failing::beginShortage(n); }
  ~LostAllocation() { failing::endShortage(); }
  LostAllocation(const LostAllocation&) = delete;
  LostAllocation& operator=(const LostAllocation&) = delete;
};

// Bytes of address space that this process has.
uint64_t addressSpace() {
  uint64_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  return pages * static_cast<uint64_t>(sysconf(_SC_PAGESIZE));
}

void limitMemory(uint64_t bytes) {
  rlimit limit = {};
  getrlimit(RLIMIT_AS, &limit);
  limit.rlim_cur = bytes;
  setrlimit(RLIMIT_AS, &limit);
}

// Everything that the allocator can give without asking the system.
class HeldMemory {
 public:
  HeldMemory() {
    for (std::size_t size = std::size_t{1} << 24; size >= sizeof(Block); size /= 4) {
      while (auto* block = static_cast<Block*>(std::malloc(size))) {
        block->next = first_;
        first_ = block;
      }
    }
  }
  ~HeldMemory() {
    while (first_ != nullptr) std::free(std::exchange(first_, first_->next));
  }
  HeldMemory(const HeldMemory&) = delete;
  HeldMemory& operator=(const HeldMemory&) = delete;

 private:
  struct Block {
    Block* next;
  };
  Block* first_ = nullptr;
};

// The process has so many kilobytes left for the extent of a scope.
class LimitedMemory {
 public:
  explicit LimitedMemory(uint64_t kilobytes) {
    const uint64_t now = addressSpace();
    limitMemory(now);
    held_.emplace();
    limitMemory(now + kilobytes * 1024);
  }
  ~LimitedMemory() {
    held_.reset();
    limitMemory(RLIM_INFINITY);
  }
  LimitedMemory(const LimitedMemory&) = delete;
  LimitedMemory& operator=(const LimitedMemory&) = delete;

 private:
  std::optional<HeldMemory> held_;
};

// What becomes of the scene in a shortage, and behind it.
template <class Shortage>
Outcome outcomeIn(Scene& scene, uint64_t amount, const std::string& expected) {
  bool done = false;
  bool thrown = false;
  {
    const Shortage shortage(amount);
    try {
      done = scene.run();
    } catch (const std::bad_alloc&) {  // of the pictures and of AddSection, which may say so
    } catch (const std::runtime_error&) {
    } catch (...) {
      thrown = true;
    }
  }
  if (thrown) return kException;
  if (done && Scene::values() != expected) return kWrong;
  if (!scene.run() || Scene::values() != expected) return kNotRecovered;
  return done ? kUnaffected : kRefused;
}

template <class Trial>
int statusOfChild(const Trial& trial) {
  const pid_t child = fork();
  if (child == 0) {
    alarm(kLongest);
    _exit(trial());
  }
  int status = -1;
  waitpid(child, &status, 0);
  return status;
}

}  // namespace

int main(int count, char** arguments) {
  const bool limited = count == 4 && std::strcmp(arguments[2], "limit") == 0;
  const std::string kind = count > 1 ? arguments[1] : "";
  const uint64_t step = std::strtoull(arguments[count - 1], nullptr, 10);
  if ((count != 3 && !limited) || step == 0 ||
      (kind != "classic" && kind != "netcdf4" && kind != "picture")) {
    std::fputs("usage: library_shortages classic|netcdf4|picture [limit] STEP\n", stderr);
    return 2;
  }
  std::setvbuf(stdout, nullptr, _IONBF, 0);
  Scene scene(kind);
  if (!scene.run()) return std::printf("%s\n", util::LastError.c_str()), 2;
  const std::string expected = Scene::values();
  failing::beginShortage(0);
  scene.run();
  const uint64_t made = failing::endShortage();
  constexpr uint64_t kMostKilobytes = 65'536;
  const uint64_t all = limited ? kMostKilobytes : made;
  std::map<std::string, int> counts;
  int tried = 0;
  for (uint64_t n = 1; n <= all; n += step, ++tried) {
    const int status = statusOfChild([&] {
      return limited ? outcomeIn<LimitedMemory>(scene, n, expected)
                     : outcomeIn<LostAllocation>(scene, n, expected);
    });
    std::string outcome = "deaths";
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM) outcome = "hangs";
    if (WIFEXITED(status) && WEXITSTATUS(status) < kKinds) outcome = kNames[WEXITSTATUS(status)];
    ++counts[outcome];
    if (outcome != "refused" && outcome != "unaffected") {
      std::printf("  %s %llu: %s, status %x\n", limited ? "KiB" : "allocation",
                  static_cast<unsigned long long>(n), outcome.c_str(),
                  static_cast<unsigned>(status));
    }
  }
  std::printf("%s: %llu %s, %d tried", kind.c_str(), static_cast<unsigned long long>(all),
              limited ? "KiB" : "allocations", tried);
  for (const auto& [name, number] : counts) std::printf(", %d %s", number, name.c_str());
  std::printf("\n");
  return counts["refused"] + counts["unaffected"] == tried ? 0 : 1;
}
