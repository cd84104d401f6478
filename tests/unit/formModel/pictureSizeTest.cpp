#include "model/pictureSize.h"

#include <gtest/gtest.h>

namespace form {
namespace {

std::wstring problemOf(const wchar_t* width, const wchar_t* height) {
  std::wstring problem;
  EXPECT_EQ(readPictureSize(width, height, problem), std::nullopt);
  return problem;
}

TEST(PictureSize, IsReadFromTwoTexts) {
  std::wstring problem = L"old";
  EXPECT_EQ(readPictureSize(L"1000", L" 600 ", problem), (PictureSize{1000, 600}));
  EXPECT_EQ(problem, L"");
  EXPECT_EQ(readPictureSize(L"50", L"10000", problem), (PictureSize{50, 10000}));
}

TEST(PictureSize, HasLimits) {
  constexpr wchar_t kWidth[] = L"The width must be a whole number from 50 to 10000.";
  for (const wchar_t* wrong : {L"", L"49", L"10001", L"-100", L"1e3", L"100.5", L"99999999999"}) {
    EXPECT_EQ(problemOf(wrong, L"100"), kWidth);
  }
  EXPECT_EQ(problemOf(L"100", L"x"), L"The height must be a whole number from 50 to 10000.");
  EXPECT_EQ(problemOf(L"10000", L"3001"), L"A picture can have 30 million pixels at most.");
}

TEST(FitOnPage, KeepsTheProportionsAndTheMiddle) {
  EXPECT_EQ(fitOnPage({200, 100}, {100, 100}), (Place{50, 0, 100, 100}));
  EXPECT_EQ(fitOnPage({100, 200}, {50, 25}), (Place{0, 75, 100, 50}));
  EXPECT_EQ(fitOnPage({4961, 7016}, {1000, 600}), (Place{0, 2019, 4961, 2977}));
}

TEST(FitOnPage, OfNothingIsNothing) {
  EXPECT_EQ(fitOnPage({0, 100}, {10, 10}), Place{});
  EXPECT_EQ(fitOnPage({100, 100}, {0, 10}), Place{});
}

}  // namespace
}  // namespace form
