#include "model/pathText.h"

#include <gtest/gtest.h>

namespace form {
namespace {

const Path kTwo = {{285.25, 32}, {292.75, 35.1}};

class SeparatedBy : public testing::TestWithParam<const wchar_t*> {};

TEST_P(SeparatedBy, GivesThePoints) {
  const ReadPath read = readPath(GetParam());
  EXPECT_EQ(read.problem, L"");
  EXPECT_EQ(read.points, kTwo);
}

INSTANTIATE_TEST_SUITE_P(
    PathText, SeparatedBy,
    testing::Values(L"285.25\t32\n292.75\t35.1", L"285.25;32\r\n292.75;35.1\r\n",
                    L"285.25,32\n292.75,35.1", L"285.25, 32\n292.75, 35.1",
                    L"285.25 32\n292.75   35.1", L"285.25 , 32\n292.75 , 35.1",
                    L"285,25\t32\n292,75\t35,1", L"285,25; 32\n292,75; 35,1",
                    L"285,25 32\n292,75 35,1", L"285,25, 32\n292,75, 35,1",
                    L"285,25,32,0\n292,75,35,1", L"285.25\t\t32\t\n292.75\t35.1\t"));

TEST(PathText, PassesOverHeadingsRemarksAndBlankLines) {
  const ReadPath read = readPath(L"longitude\tlatitude\n\n# 1 2\n285.25\t32\n\r\n292.75\t35.1\n\n");
  EXPECT_EQ(read.problem, L"");
  EXPECT_EQ(read.points, kTwo);
}

TEST(PathText, NamesTheLineThatIsNoPoint) {
  EXPECT_EQ(readPath(L"1\t2\n3\n").problem,
            L"Line 2 is not a longitude and a latitude: 3");
  EXPECT_EQ(readPath(L"1\t2\t3").problem,
            L"Line 1 is not a longitude and a latitude: 1\t2\t3");
  // One comma too many or too few to tell the numbers apart.
  EXPECT_NE(readPath(L"285,25,32").problem, L"");
  EXPECT_NE(readPath(L"1 x2").problem, L"");
  const std::wstring longLine(200, L'7');
  EXPECT_EQ(readPath(longLine).problem.size(), readPath(L"3").problem.size() + 39 + 3);
}

TEST(PathText, OfNothingHasNoPoints) {
  EXPECT_EQ(readPath(L"").points, Path());
  EXPECT_EQ(readPath(L"").problem, L"");
  EXPECT_EQ(readPath(L"no points here").points, Path());
}

TEST(PathText, ReadsWhatItWrote) {
  EXPECT_EQ(writePath(kTwo), L"285.25\t32\r\n292.75\t35.1\r\n");
  EXPECT_EQ(writePath(kTwo, L"\n"), L"285.25\t32\n292.75\t35.1\n");
  EXPECT_EQ(readPath(writePath(kTwo)).points, kTwo);
}

}  // namespace
}  // namespace form
