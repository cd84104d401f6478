#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

#include "Subprocess.h"
#include "TerminalDesktop.h"
#include "support/TempFolder.h"

namespace {

// A variable of the environment with another value for the extent of a test.
class Variable {
 public:
  Variable(const char* name, const std::string& value) : name_(name) {
    const char* before = std::getenv(name);
    if (before != nullptr) before_ = before;
    setenv(name, value.c_str(), 1);
  }
  ~Variable() {
    if (before_) {
      setenv(name_, before_->c_str(), 1);
    } else {
      unsetenv(name_);
    }
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name_;
  std::optional<std::string> before_;
};

// Makes a locale that has nothing but a decimal separator.
void compileLocale(const support::TempFolder& folder, const std::string& name,
                   const std::string& separator) {
  const std::string source = folder.file(name + ".source");
  std::ofstream(source) << "LC_NUMERIC\ndecimal_point \"" << separator
                        << "\"\nthousands_sep \"\"\ngrouping -1\nEND LC_NUMERIC\n";
  // It warns of everything that is missing, and exits with 1 for that.
  const cli_test::Result made = cli_test::run(
      {"/usr/bin/localedef", "--no-archive", "-c", "-f", "UTF-8", "-i", source, folder.file(name)});
  ASSERT_TRUE(std::filesystem::exists(folder.file(name + "/LC_NUMERIC"))) << made.err;
}

std::string separatorOf(const std::string& all, const std::string& numeric,
                        const std::string& lang) {
  const Variable setAll("LC_ALL", all), setNumeric("LC_NUMERIC", numeric), setLang("LANG", lang);
  return cli::TerminalDesktop().DecimalSeparator();
}

TEST(TerminalDesktop, TheDecimalSeparatorIsThatOfTheUsersLocale) {
  const support::TempFolder folder;
  compileLocale(folder, "comma", ",");
  compileLocale(folder, "arabic", "<U066B>");
  const Variable path("LOCPATH", folder.path().string());
  EXPECT_EQ(separatorOf("comma", "arabic", "C"), ",");
  EXPECT_EQ(separatorOf("", "arabic", "comma"), "\xD9\xAB");
  EXPECT_EQ(separatorOf("", "", "comma"), ",");
  EXPECT_EQ(separatorOf("C", "comma", "comma"), ".");
  EXPECT_EQ(separatorOf("", "", ""), ".");
  EXPECT_EQ(separatorOf("no-such-locale", "", ""), ".");
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
}

}  // namespace
