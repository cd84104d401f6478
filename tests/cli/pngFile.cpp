#include "pngFile.h"

#include <gtest/gtest.h>

#include <string_view>

namespace cli_test {
namespace {

uint32_t bigEndian(std::string_view bytes) {
  uint32_t number = 0;
  for (const char c : bytes.substr(0, 4)) number = number * 256 + static_cast<unsigned char>(c);
  return number;
}

// The checksum that PNG puts behind each chunk.
uint32_t checksum(std::string_view bytes) {
  uint32_t sum = 0xFFFFFFFFU;
  for (const char c : bytes) {
    sum ^= static_cast<unsigned char>(c);
    for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1) ^ ((sum & 1U) != 0 ? 0xEDB88320U : 0U);
  }
  return ~sum;
}

// Takes a chunk off the bytes; its kind, or nothing when it is not whole.
std::string takeChunk(std::string_view& bytes) {
  constexpr std::size_t kAround = 12;  // length, kind, checksum
  if (bytes.size() < kAround) return {};
  const std::size_t length = bigEndian(bytes);
  if (length > bytes.size() - kAround) return {};
  const std::string_view summed = bytes.substr(4, 4 + length);
  if (checksum(summed) != bigEndian(bytes.substr(8 + length))) return {};
  bytes.remove_prefix(kAround + length);
  return std::string(summed.substr(0, 4));
}

}  // namespace

void expectPng(const std::string& bytes, uint32_t width, uint32_t height) {
  ASSERT_GT(bytes.size(), 33U);
  EXPECT_EQ(bytes.substr(0, 8), "\x89PNG\r\n\x1A\n");
  EXPECT_EQ(bytes.substr(12, 4), "IHDR");
  EXPECT_EQ(bigEndian(std::string_view(bytes).substr(16)), width);
  EXPECT_EQ(bigEndian(std::string_view(bytes).substr(20)), height);
  std::string_view rest = std::string_view(bytes).substr(8);
  std::string kind;
  do {
    kind = takeChunk(rest);
  } while (!kind.empty() && kind != "IEND");
  EXPECT_EQ(kind, "IEND") << "the picture is cut off or damaged";
  EXPECT_TRUE(rest.empty());
}

}  // namespace cli_test
