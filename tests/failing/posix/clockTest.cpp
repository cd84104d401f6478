#include <dlfcn.h>

#include <chrono>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <stdexcept>

#include "colorkey/colorKey.h"
#include "platform/WriteTurn.h"
#include "unit/control/ControlTest.h"
#include "util/lastError.h"

namespace {

// The system's time of day, in seconds from 1970, when a test sets it; each look at it moves it.
bool isSet = false;
std::int64_t today = 0;
std::int64_t jump = 0;

}  // namespace

// The program's own function comes before the system's.
extern "C" int clock_gettime(clockid_t clock, timespec* time) noexcept {
  static const auto real =
      reinterpret_cast<int (*)(clockid_t, timespec*)>(dlsym(RTLD_NEXT, "clock_gettime"));
  if (!isSet || clock != CLOCK_REALTIME) return real(clock, time);
  today += jump;
  *time = {};
  time->tv_sec = today;
  return 0;
}

namespace {

using std::chrono::system_clock;

class Clock : public ControlTest {
 protected:
  ~Clock() override { isSet = false; }
  static void setClock(std::int64_t seconds, std::int64_t jumps) {
    today = seconds;
    jump = jumps;
    isSet = true;
  }
};

constexpr std::int64_t kYear = 31'556'952;
// Before 1970, at its beginning, at the ends of 32 bits, and near the end of what a clock of
// nanoseconds can tell.
constexpr std::int64_t kTimes[] = {-100 * kYear,      -1, 0, 1, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF,
                                   0x1'0000'0000, 250 * kYear};

TEST_F(Clock, OfAnyTimeMakesAKeyOfTenColours) {
  openAlongLatitude();
  for (const std::int64_t time : kTimes) {
    for (const std::int64_t jumps : {0, 3600, -3600}) {
      setClock(time, jumps);
      ASSERT_EQ(system_clock::to_time_t(system_clock::now()), time + jumps);
      std::filesystem::remove(folder.file("tiny.KEW"));
      control.InitColorKey();
      EXPECT_EQ(ModColor::ColorKey.nDivision, 10) << time;
      EXPECT_EQ(util::LastError, "");
      EXPECT_EQ(control.KewFile(folder.file("tiny.KEW")), 1);
      control.Draw();
      EXPECT_GE(control.AdvanceTime(1), 1);
    }
  }
}

TEST_F(Clock, ThatJumpsMakesNoWaitLongerOrShorter) {
  const platform::WriteTurn turn(folder.file("set.KEW"));
  for (const std::int64_t jumps : {-kYear, kYear}) {
    setClock(0, jumps);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_THROW(
        platform::WriteTurn(folder.file("set.KEW"), std::chrono::milliseconds(200)),
        std::runtime_error);
    const auto waited = std::chrono::steady_clock::now() - begin;
    EXPECT_GE(waited, std::chrono::milliseconds(200));
    EXPECT_LT(waited, std::chrono::seconds(20));
  }
}

}  // namespace
