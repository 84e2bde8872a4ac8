#include "instructions/builders/modBuilder.h"

#include "support/ErrorReports.h"
#include "support/doubles/InstructionFakes.h"

namespace portico {
namespace {

using test::FailureOf;

TEST(StringArray, AnArrayThatWasNeverAllocatedHasNoBounds) {
  const StringArray none;
  EXPECT_FALSE(none.IsAllocated());
  EXPECT_EQ(FailureOf([&] { none.LowerBound(); }).Number, 9);
  EXPECT_EQ(FailureOf([&] { none.UpperBound(); }).Number, 9);
  EXPECT_EQ(FailureOf([&] { none.Elements(); }).Number, 9);
  EXPECT_EQ(FailureOf([&] { none[0]; }).Number, 9);
}

TEST(StringArray, HoldsEmptyStringsFromZeroToTheCountMinusOne) {
  const StringArray two(2);
  EXPECT_TRUE(two.IsAllocated());
  EXPECT_EQ(two.LowerBound(), 0);
  EXPECT_EQ(two.UpperBound(), 1);
  EXPECT_EQ(two[1], u"");
}

TEST(StringArray, CannotBeMadeWithoutElements) {
  EXPECT_EQ(FailureOf([] { StringArray(std::size_t{0}); }).Number, 9);
}

TEST(StringArray, AnIndexOutsideTheBoundsRaises) {
  StringArray two = {u"a", u"b"};
  EXPECT_EQ(FailureOf([&] { two[-1]; }).Number, 9);
  EXPECT_EQ(FailureOf([&] { two[2] = u"c"; }).Number, 9);
  two[1] = u"c";
  EXPECT_EQ(two.Elements(), (std::vector<String>{u"a", u"c"}));
}

TEST(modBuilder, CountsTheElements) {
  EXPECT_EQ(modBuilder::ParamCount({u"a"}), 1);
  EXPECT_EQ(modBuilder::ParamCount({u"a", u"b", u"c"}), 3);
}

TEST(modBuilder, AnArrayThatWasNeverAllocatedCountsZero) { EXPECT_EQ(modBuilder::ParamCount(StringArray()), 0); }

TEST(modBuilder, ParametersAreTheInnerCommandAndThenTheStrings) {
  const auto inner = New<test::CommandOf>([] {});
  const Params parameters = modBuilder::BuildCommandParams(inner, {u"a", u"b"});
  ASSERT_EQ(parameters.size(), 3U);
  EXPECT_TRUE(IsSameObject(parameters[0].ToObject<ICommand>(), inner));
  EXPECT_EQ(parameters[1].ToString(), u"a");
  EXPECT_EQ(parameters[2].ToString(), u"b");
}

TEST(modBuilder, WithoutStringsTheOneParameterIsTheInnerCommand) {
  const Params parameters = modBuilder::BuildCommandParams({}, StringArray());
  ASSERT_EQ(parameters.size(), 1U);
  EXPECT_FALSE(parameters[0].ToObject<ICommand>());
}

} // namespace
} // namespace portico
