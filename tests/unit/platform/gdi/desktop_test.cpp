#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "platform/gdi/WindowsDesktop.h"

namespace {

// The user's own choice of a decimal separator, for the extent of a test.
class UserSeparator {
 public:
  explicit UserSeparator(const wchar_t* separator) {
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before_, 8);
    SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator);
  }
  ~UserSeparator() { SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before_); }
  UserSeparator(const UserSeparator&) = delete;
  UserSeparator& operator=(const UserSeparator&) = delete;

 private:
  wchar_t before_[8] = {};
};

TEST(WindowsDesktop, TheDecimalSeparatorIsTheOneThatTheUserHasSet) {
  const platform::WindowsDesktop desktop;
  for (const auto& [set, expected] : {std::pair{L",", ","}, std::pair{L".", "."},
                                      std::pair{L"\u066B", "\xD9\xAB"}, std::pair{L"::", "::"}}) {
    const UserSeparator separator(set);
    EXPECT_EQ(desktop.DecimalSeparator(), expected);
  }
}

}  // namespace
