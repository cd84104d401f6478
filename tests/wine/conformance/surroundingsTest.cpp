#include <clocale>
#include <string>

#include "DrawnControl.h"

namespace winetest {
namespace {

using host::Picture;

// What the rest of the program has set for itself.
class Surroundings : public DrawnControl {
 protected:
  Surroundings() {
    wchar_t folder[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, folder);
    folderBefore_ = folder;
    localeBefore_ = std::setlocale(LC_ALL, nullptr);
    threadLocaleBefore_ = GetThreadLocale();
  }
  ~Surroundings() override {
    SetCurrentDirectoryW(folderBefore_.c_str());
    std::setlocale(LC_ALL, localeBefore_.c_str());
    SetThreadLocale(threadLocaleBefore_);
  }

  Picture drawnAnew() {
    EXPECT_EQ(object_.call(L"NcFile", {host::wide(folder_.file("tiny.nc"))}).number(), 1);
    object_.call(L"Draw");
    return plain();
  }

 private:
  std::wstring folderBefore_;
  std::string localeBefore_;
  LCID threadLocaleBefore_ = 0;
};

// The numbers on the axes are those of a program that has set nothing.
TEST_F(Surroundings, OfTheLanguageMakeNoDifference) {
  const Picture before = drawnAnew();
  ASSERT_NE(std::setlocale(LC_ALL, "German_Germany.1252"), nullptr);
  ASSERT_TRUE(SetThreadLocale(MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT)));
  const std::string locale = std::setlocale(LC_ALL, nullptr);
  const LCID threadLocale = GetThreadLocale();
  EXPECT_STREQ(std::localeconv()->decimal_point, ",");
  EXPECT_TRUE(drawnAnew() == before);
  EXPECT_EQ(std::setlocale(LC_ALL, nullptr), locale);
  EXPECT_EQ(GetThreadLocale(), threadLocale);
}

TEST_F(Surroundings, OfTheCurrentFolderMakeNoDifference) {
  const Picture before = drawnAnew();
  wchar_t windows[MAX_PATH] = {}, after[MAX_PATH] = {};
  GetWindowsDirectoryW(windows, MAX_PATH);
  ASSERT_TRUE(SetCurrentDirectoryW(windows));
  EXPECT_TRUE(drawnAnew() == before);
  GetCurrentDirectoryW(MAX_PATH, after);
  EXPECT_EQ(host::narrow(after), host::narrow(windows));
}

}  // namespace
}  // namespace winetest
