#include "logtool/Alignment.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace portico::logtool {
namespace {

using Numbers = std::vector<std::size_t>;

Numbers Of(const std::string& letters) { return {letters.begin(), letters.end()}; }

/// What is aligned, as the letters of A, once it has been checked that the places rise and that the letters are equal.
std::string Common(const std::string& a, const std::string& b) {
  const auto found = Align(Of(a), Of(b));
  EXPECT_EQ(found.size(), a.size());
  std::string common;
  std::size_t next = 0;
  for (std::size_t i = 0; i < found.size(); ++i) {
    if (!found[i]) continue;
    EXPECT_GE(*found[i], next) << a << ' ' << b;
    if (*found[i] >= b.size()) throw std::out_of_range("Align");
    EXPECT_EQ(a[i], b[*found[i]]);
    next = *found[i] + 1;
    common += a[i];
  }
  return common;
}

/// By the textbook's table.
std::size_t LengthOfLongest(const std::string& a, const std::string& b) {
  std::vector<Numbers> table(a.size() + 1, Numbers(b.size() + 1));
  for (std::size_t i = 0; i < a.size(); ++i) {
    for (std::size_t j = 0; j < b.size(); ++j) {
      table[i + 1][j + 1] = a[i] == b[j] ? table[i][j] + 1 : std::max(table[i][j + 1], table[i + 1][j]);
    }
  }
  return table[a.size()][b.size()];
}

TEST(Alignment, NothingIsAlignedWithNothing) {
  EXPECT_EQ(Common("", ""), "");
  EXPECT_EQ(Common("abc", ""), "");
  EXPECT_EQ(Common("", "abc"), "");
  EXPECT_EQ(Common("abc", "xyz"), "");
}

TEST(Alignment, WhatIsTheSameIsAlignedWhole) { EXPECT_EQ(Common("abcabc", "abcabc"), "abcabc"); }

TEST(Alignment, WhatIsInOneAloneIsPassedOver) {
  EXPECT_EQ(Common("abcd", "abXcd"), "abcd");
  EXPECT_EQ(Common("abXcd", "abcd"), "abcd");
  EXPECT_EQ(Common("Xab", "ab"), "ab");
  EXPECT_EQ(Common("ab", "abX"), "ab");
  EXPECT_EQ(Common("abc", "aXc"), "ac");
}

TEST(Alignment, AsMuchAsCanBeIsAligned) {
  std::mt19937 random(7);
  for (int round = 0; round < 3000; ++round) {
    const auto letters = [&](std::size_t most) {
      std::string text(random() % (most + 1), ' ');
      for (char& letter : text) letter = static_cast<char>('a' + random() % 3);
      return text;
    };
    const std::string a = letters(14);
    const std::string b = letters(14);
    EXPECT_EQ(Common(a, b).size(), LengthOfLongest(a, b)) << a << ' ' << b;
  }
}

TEST(Alignment, LongTextsThatHaveLittleInCommonComeToAnEnd) {
  Numbers a(20'000);
  Numbers b(30'000);
  std::mt19937 random(7);
  for (auto& number : a) number = random() % 50;
  for (auto& number : b) number = random() % 50 + 25;
  a.back() = b.back() = 1'000;
  const auto found = Align(a, b);
  EXPECT_EQ(found.back(), b.size() - 1);
  EXPECT_GT(std::count_if(found.begin(), found.end(), [](const auto& place) { return place.has_value(); }), 1'000);
}

TEST(Alignment, AShortTextIsFoundInALongOneOnEitherSide) {
  Numbers most(5'000);
  for (std::size_t i = 0; i < most.size(); ++i) most[i] = i;
  const Numbers few = {10'000, 4'321, 10'001};
  const auto found = Align(few, most);
  EXPECT_EQ(found, (std::vector<std::optional<std::size_t>>{std::nullopt, 4'321, std::nullopt}));
  const auto places = Align(most, few);
  EXPECT_EQ(places[4'321], 1U);
  EXPECT_EQ(std::count(places.begin(), places.end(), std::nullopt), 4'999);
}

TEST(Alignment, AFewChangesInALongTextAreFound) {
  Numbers a(100'000);
  std::mt19937 random(7);
  for (auto& number : a) number = random() % 5;
  Numbers b = a;
  b.insert(b.begin() + 40'000, 9);
  b.erase(b.begin() + 70'000);
  const auto found = Align(a, b);
  EXPECT_EQ(found[39'999], 39'999U);
  EXPECT_EQ(found[40'000], 40'001U);
  EXPECT_EQ(found[99'999], 99'999U);
  EXPECT_EQ(std::count(found.begin(), found.end(), std::nullopt), 1);
}

} // namespace
} // namespace portico::logtool
