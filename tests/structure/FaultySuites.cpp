// Suites that ctest must judge rightly, see test_suites.sh. They are no tests of the project's own.

#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>

namespace {

TEST(Good, First) {}
TEST(Good, Second) {}

// Bears another's name at its beginning.
TEST(GoodMore, Fails) { FAIL(); }

TEST(Mixed, Passes) {}
TEST(Mixed, Fails) { EXPECT_EQ(1, 2); }
TEST(Mixed, Throws) { throw std::runtime_error("thrown"); }

TEST(Crashing, Crashes) { std::abort(); }

TEST(Ending, EndsTheProgramWithSuccess) { std::exit(EXIT_SUCCESS); }
TEST(Ending, FailsBehindIt) { FAIL(); }

TEST(Idle, DISABLED_DoesNotRun) {}

class Values : public testing::TestWithParam<int> {};
TEST_P(Values, AreSmall) { EXPECT_LT(GetParam(), 10); }
INSTANTIATE_TEST_SUITE_P(Small, Values, testing::Range(0, 3));
INSTANTIATE_TEST_SUITE_P(Large, Values, testing::Values(1, 100));

template <class Type>
class Types : public testing::Test {};
using Tried = testing::Types<char, int>;
TYPED_TEST_SUITE(Types, Tried, );
TYPED_TEST(Types, AreSmall) { EXPECT_EQ(sizeof(TypeParam), 1U); }

} // namespace
