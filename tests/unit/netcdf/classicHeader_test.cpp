#include "netcdf/classicHeader.h"

#include <netcdf_meta.h>

#include <filesystem>
#include <fstream>

#include "NcTest.h"

namespace {

using ocxNetNc::checkClassicHeader;
using ocxNetNc::HeaderState;
using support::NcMaker;

constexpr uint32_t kAbsent = 0, kDimensions = 10, kVariables = 11;

// A whole data set of the oldest format, one float variable v(d), as 32-bit numbers.
std::vector<uint32_t> smallSet() {
  return {0x43444601,  0,                        // CDF-1, no records
          kDimensions, 1,  1,  'd' << 24, 4,     // 2: d = 4
          kAbsent,     0,                        // 7: no global attributes
          kVariables,  1,  1,  'v' << 24, 1, 0,  // 9: v(d)
          kAbsent,     0,                        // 15: no attributes
          NC_FLOAT,    16, 80,                   // 17: type, size, place
          0,           0,  0,  0};               // 20: the values
}

std::string bytesOf(const std::vector<uint32_t>& words) {
  std::string bytes;
  for (const uint32_t word : words) {
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(word >> shift & 0xFF);
  }
  return bytes;
}

class ClassicHeaderTest : public NcTest {
 protected:
  HeaderState stateOf(const std::string& bytes) {
    std::ofstream(file(), std::ios::binary) << bytes;
    return checkClassicHeader(file());
  }
};

TEST_F(ClassicHeaderTest, PassesWhatTheLibraryWrites) {
  std::vector<int> modes = {0, NC_64BIT_OFFSET, NC_NETCDF4};
#if NC_HAS_CDF5  // the library does not have this format in 32-bit programs
  modes.push_back(NC_64BIT_DATA);
#endif
  for (const int mode : modes) {
    SCOPED_TRACE(mode);
    {
      NcMaker nc(file(), mode);
      const int time = nc.dim("time", NC_UNLIMITED);
      const int x = nc.dim("x", 3);
      const int fixed = nc.var("fixed", NC_DOUBLE, {x});
      nc.text(fixed, "units", "m");
      nc.number(fixed, "range", NC_SHORT, {1, 2, 3});
      nc.var("scalar", NC_INT, {});
      const int bytes = nc.var("bytes", NC_BYTE, {time, x});
      nc.var("shorts", NC_SHORT, {time, x});
      nc.text(NC_GLOBAL, "title", "odd");
      nc.putSlab(bytes, {0, 0}, {3, 3}, {1, 2, 3, 4, 5, 6, 7, 8, 9});
      nc.close();
    }
    EXPECT_EQ(checkClassicHeader(file()), HeaderState::Sound);
    open(file());
    ocxNetNc::NcClose();
  }
}

TEST_F(ClassicHeaderTest, KnowsThatASingleRecordVariableIsNotPadded) {
  {
    NcMaker nc(file());
    const int time = nc.dim("time", NC_UNLIMITED);
    const int x = nc.dim("x", 3);
    const int bytes = nc.var("bytes", NC_BYTE, {time, x});
    nc.putSlab(bytes, {0, 0}, {4, 3}, std::vector<double>(12, 7));
    nc.close();
  }
  EXPECT_EQ(checkClassicHeader(file()), HeaderState::Sound);
  std::filesystem::resize_file(file(), std::filesystem::file_size(file()) - 1);
  EXPECT_EQ(checkClassicHeader(file()), HeaderState::CutShort);
}

TEST_F(ClassicHeaderTest, JudgesEveryNumberOfAHeader) {
  ASSERT_EQ(stateOf(bytesOf(smallSet())), HeaderState::Sound);
  const struct {
    std::size_t word;
    uint32_t value;
    HeaderState state;
  } cases[] = {
      {0, 0x43444603, HeaderState::Sound},  // another format, which the library judges
      {1, 0xFFFFFFFF, HeaderState::Sound},  // a record count left open
      {2, kAbsent, HeaderState::Broken},
      {2, kVariables, HeaderState::Broken},
      {3, 2, HeaderState::Broken},
      {3, 0x7FFFFFFF, HeaderState::Broken},
      {3, 0xFFFFFFFF, HeaderState::Broken},
      {4, 0, HeaderState::Broken},
      {4, 257, HeaderState::Broken},
      {4, 0xFFFFFFFF, HeaderState::Broken},
      {6, 0, HeaderState::Sound},  // the record dimension, without records
      {6, 5, HeaderState::CutShort},
      {6, 0x7FFFFFFF, HeaderState::CutShort},
      {8, 1, HeaderState::Broken},
      {9, 13, HeaderState::Broken},
      {10, 9, HeaderState::Broken},
      {13, 0x7FFFFFFF, HeaderState::Broken},
      {13, 0, HeaderState::Broken},
      {14, 1, HeaderState::Broken},
      {14, 0xFFFFFFFF, HeaderState::Broken},
      {16, 0x10000000, HeaderState::Broken},
      {17, 0, HeaderState::Broken},
      {17, 7, HeaderState::Broken},
      {17, NC_DOUBLE, HeaderState::CutShort},
      {17, NC_CHAR, HeaderState::Sound},
      {18, 0xFFFFFFFF, HeaderState::Sound},  // the stored size is not used
      {19, 76, HeaderState::Broken},
      {19, 84, HeaderState::CutShort},
      {19, 0xFFFFFFFF, HeaderState::CutShort},
  };
  for (const auto& c : cases) {
    std::vector<uint32_t> words = smallSet();
    words[c.word] = c.value;
    EXPECT_EQ(stateOf(bytesOf(words)), c.state) << c.word << ": " << c.value;
  }
}

TEST_F(ClassicHeaderTest, FindsEveryCut) {
  const std::string whole = bytesOf(smallSet());
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    const HeaderState expected = length < 4    ? HeaderState::Sound
                                 : length < 80 ? HeaderState::Broken
                                 : length < 96 ? HeaderState::CutShort
                                               : HeaderState::Sound;
    EXPECT_EQ(stateOf(whole.substr(0, length)), expected) << length;
  }
}

TEST_F(ClassicHeaderTest, DoesNotOverflow) {
  std::vector<uint32_t> words = smallSet();
  words[6] = 0x7FFFFFFF;
  words[13] = 3;
  words.insert(words.begin() + 15, {0, 0});
  words[21] = 88;
  EXPECT_EQ(stateOf(bytesOf(words)), HeaderState::Broken);
}

TEST_F(ClassicHeaderTest, CountsRecords) {
  std::vector<uint32_t> words = smallSet();
  words[6] = 0;
  for (const auto& [records, state] :
       {std::pair{uint32_t{4}, HeaderState::Sound}, std::pair{uint32_t{5}, HeaderState::CutShort},
        std::pair{0xFFFFFFFEU, HeaderState::CutShort}}) {
    words[1] = records;
    EXPECT_EQ(stateOf(bytesOf(words)), state) << records;
  }
  // A record dimension anywhere but first, and a second one.
  words = smallSet();
  words[6] = 0;
  words[13] = 2;
  words.insert(words.begin() + 15, 0U);
  EXPECT_EQ(stateOf(bytesOf(words)), HeaderState::Broken);
  words = smallSet();
  words[3] = 2;
  words[6] = 0;
  words.insert(words.begin() + 7, {1U, 'e' << 24U, 0U});
  EXPECT_EQ(stateOf(bytesOf(words)), HeaderState::Broken);
}

TEST_F(ClassicHeaderTest, LeavesEverythingElseToTheLibrary) {
  EXPECT_EQ(checkClassicHeader(file("none.nc")), HeaderState::Sound);
  EXPECT_EQ(checkClassicHeader(folder.path().string()), HeaderState::Sound);
  EXPECT_EQ(checkClassicHeader("http://host/data/run1.nc"), HeaderState::Sound);
  EXPECT_EQ(checkClassicHeader(""), HeaderState::Sound);
  EXPECT_EQ(checkClassicHeader("\xFF\xFE.nc"), HeaderState::Sound);
  EXPECT_EQ(stateOf("CDF, the story of a text file"), HeaderState::Sound);
}

}  // namespace
