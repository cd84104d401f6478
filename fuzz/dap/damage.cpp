#include "damage.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <iterator>

#include "DapSet.h"

namespace fuzz {
namespace {

const char* const kWords[] = {
    "{", "}", "[", "]", ";", "=", ",", "\"", "\\", "#", "Grid {", "Structure {", "Sequence {",
    "Array:", "Maps:", "Int32 x;", "String s;", "Dataset", "Attributes", "Error {", "code = 404;",
    "message = \"", "Data:\n", "Data:\r\n", "[-1]", "[0]", "[2147483647]", "[4294967296]",
    "[x = 65536]", "alias a b;", "Byte", "%00", "%", "\xff", "\x80", "temp", "lon", "time",
    "NC_GLOBAL", "DODS", "} a;", "9999999999999999999", "nan", "\n"};

constexpr std::array<unsigned, 14> kNumbers = {
    0,          1,          2,          3,          4,       0x7FFFFFFF, 0x80000000,
    0xFFFFFFFF, 0xFFFFFFFE, 0x40000000, 0x3FFFFFFF, 0x10000, 0x5A000000, 0xA5000000};

std::string anyWord(Random& random) { return kWords[random.below(std::size(kWords))]; }

void overwrite(std::string& answer, std::size_t at, Random& random) {
  const std::size_t end = std::min(at + 1 + random.below(8), answer.size());
  for (; at < end; ++at) answer[at] = static_cast<char>(random.next() & 0xFF);
}

void copyPart(std::string& answer, std::size_t at, Random& random) {
  const std::string part = answer.substr(at, 1 + random.below(80));
  answer.insert(random.below(answer.size()), part);
}

void replacePart(std::string& answer, std::size_t at, Random& random) {
  const std::string word = anyWord(random);
  answer.replace(at, std::min(word.size(), answer.size() - at), word);
}

// A number among the data, which stand on borders of four bytes.
void replaceCount(std::string& answer, Random& random) {
  const std::size_t header = answer.find("Data:\n");
  if (header == std::string::npos || header + 10 > answer.size()) return;
  const std::size_t begin = header + 6;
  const std::size_t at = begin + 4 * random.below((answer.size() - begin) / 4);
  answer.replace(at, 4, dapNumber(kNumbers[random.below(kNumbers.size())]));
}

// The first number of the text behind the place.
void replaceNumber(std::string& answer, std::size_t at, Random& random) {
  const auto digit = [](unsigned char c) { return std::isdigit(c) != 0; };
  const auto from = answer.begin() + static_cast<std::ptrdiff_t>(at);
  const auto begin = std::find_if(from, answer.end(), digit);
  const auto end = std::find_if_not(begin, answer.end(), digit);
  const std::size_t number =
      random.oneIn(3) ? random.below(100) : kNumbers[random.below(kNumbers.size())];
  answer.replace(begin, end, std::to_string(number));
}

void moveLine(std::string& answer, std::size_t at, Random& random) {
  const std::size_t begin = answer.find('\n', at);
  const std::size_t end = begin == std::string::npos ? begin : answer.find('\n', begin + 1);
  if (end == std::string::npos) return;
  const std::string line = answer.substr(begin, end - begin);
  if (random.oneIn(2)) {
    answer.erase(begin, line.size());
  } else {
    answer.insert(random.below(answer.size()), line);
  }
}

void damageOnce(std::string& answer, Random& random) {
  if (answer.empty()) answer = "x";
  const std::size_t header = answer.find("Data:");
  const bool inHeader = header != std::string::npos && random.oneIn(2);
  const std::size_t at = random.below(inHeader ? header + 1 : answer.size());
  switch (random.below(10)) {
    case 0:
      answer[at] = static_cast<char>(answer[at] ^ 1 << random.below(8));
      break;
    case 1:
      overwrite(answer, at, random);
      break;
    case 2:
      answer.erase(at, 1 + random.below(40));
      break;
    case 3:
      copyPart(answer, at, random);
      break;
    case 4:
      answer.resize(at);
      break;
    case 5:
      answer.insert(at, anyWord(random));
      break;
    case 6:
      replacePart(answer, at, random);
      break;
    case 7:
      replaceCount(answer, random);
      break;
    case 8:
      replaceNumber(answer, at, random);
      break;
    default:
      moveLine(answer, at, random);
      break;
  }
}

}  // namespace

void damage(std::string& answer, Random& random) {
  for (std::size_t left = 1 + random.below(4); left > 0; --left) damageOnce(answer, random);
}

}  // namespace fuzz
