#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/files.h"
#include "support/TempFolder.h"

namespace {

std::string failureOf(const std::string& path, std::size_t limit) {
  try {
    platform::readWholeFile(path, limit);
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "";
}

TEST(ReadWholeFile, GivesEveryByte) {
  const support::TempFolder folder;
  const std::string path = folder.file("key \xC3\xA9.kew");
  std::string bytes(300'000, 'x');
  for (std::size_t at = 0; at < bytes.size(); ++at) bytes[at] = static_cast<char>(at * 7 % 256);
  for (const std::string& contents :
       {std::string(), std::string("line\r\n\0\x1A end", 13), bytes}) {
    platform::writeWholeFile(path, contents);
    EXPECT_EQ(platform::readWholeFile(path, 1'000'000), contents);
  }
}

TEST(ReadWholeFile, AFileOfTheLimitIsReadAndALongerOneIsNot) {
  const support::TempFolder folder;
  const std::string path = folder.file("file");
  for (const std::size_t limit : {0U, 1U, 65'535U, 65'536U, 65'537U, 200'000U}) {
    const std::string contents(limit, 'x');
    platform::writeWholeFile(path, contents);
    EXPECT_EQ(platform::readWholeFile(path, limit), contents);
    platform::writeWholeFile(path, contents + "y");
    EXPECT_EQ(failureOf(path, limit).rfind("Cannot read \"" + path + "\": ", 0), 0U) << limit;
  }
}

TEST(ReadWholeFile, WhatIsNoFileIsNamedWithAReason) {
  const support::TempFolder folder;
  const std::string zero("name\0end", 8);
  for (const std::string& path :
       {folder.file("missing"), folder.path().string(), std::string(), zero, folder.file(zero)}) {
    const std::string failure = failureOf(path, 1'000);
    const std::string start = "Cannot read \"" + std::string(path.c_str()) + "\": ";
    EXPECT_EQ(failure.rfind(start, 0), 0U) << failure;
    EXPECT_GT(failure.size(), start.size());
  }
}

}  // namespace
