#include "framework/shared/CInstContainer.h"

#include "support/ErrorReports.h"

namespace portico {
namespace {

using test::FailureOf;

TEST(CInstContainer, StartsEmptyWithAListOfItsOwn) {
  const CInstContainer one;
  const CInstContainer other;
  EXPECT_EQ(one.CmdType(), u"");
  EXPECT_EQ(one.FunctionName(), u"");
  ASSERT_NE(one.Params(), nullptr);
  EXPECT_EQ(one.Params()->Count(), 0U);
  EXPECT_NE(one.Params(), other.Params());
}

TEST(CInstContainer, SettersReplaceTheFieldAndCheckNothing) {
  CInstContainer instruction;
  instruction.CmdType(u"no such type");
  instruction.FunctionName(u"no such function");
  EXPECT_EQ(instruction.CmdType(), u"no such type");
  EXPECT_EQ(instruction.FunctionName(), u"no such function");
  instruction.CmdType(u"");
  EXPECT_EQ(instruction.CmdType(), u"");

  const auto parameters = std::make_shared<KeyedList<Value>>();
  instruction.Params(parameters);
  EXPECT_EQ(instruction.Params(), parameters);
}

TEST(CInstContainer, ParametersAreSharedWithWhoeverGotTheList) {
  CInstContainer instruction;
  const InstructionParams& list = instruction.Params();
  list->Add(u"first", u"Name");
  list->Add(u"second", u"Value");
  ASSERT_EQ(instruction.Params()->Count(), 2U);
  EXPECT_EQ(instruction.Params()->Item(1).ToString(), u"first");
  EXPECT_EQ(instruction.Params()->Item(u"value").ToString(), u"second");
}

TEST(CInstContainer, TwoParametersWithOneKeyAreRefused) {
  CInstContainer instruction;
  instruction.Params()->Add(u"first", u"Data");
  EXPECT_EQ(FailureOf([&] { instruction.Params()->Add(u"second", u"DATA"); }).Number, 457);
  EXPECT_EQ(instruction.Params()->Count(), 1U);
}

} // namespace
} // namespace portico
