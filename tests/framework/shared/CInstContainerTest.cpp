#include "framework/shared/CInstContainer.h"

#include "support/Allocation.h"
#include "support/ErrorReports.h"
#include "support/fixtures/FrameworkTest.h"

namespace portico {
namespace {

using test::Labels;
using test::OutOfMemory;
using test::Raised;

class CInstContainerTest : public test::FrameworkTest {};

TEST_F(CInstContainerTest, FailuresStandUnderTheLabelsOfItsOldName) {
  const String text(1000, u'x');
  CInstContainer instruction;
  EXPECT_EQ(Labels(OutOfMemory(1, [&] { instruction.CmdType(text); })),
            (std::vector<String>{u"CInstrContainer.CmdType(newValue)"}));
  EXPECT_EQ(Labels(OutOfMemory(1, [&] { instruction.FunctionName(text); })),
            (std::vector<String>{u"CInstrContainer.FunctionName(newValue)"}));
}

TEST_F(CInstContainerTest, AFailedConstructionStandsUnderItsOldName) {
  try {
    const test::FailingAllocation noMemory;
    const CInstContainer instruction;
  } catch (...) {
    StopHere(u"C.M()");
  }
  EXPECT_EQ(HuntERR::ErrNumber(), 7);
  EXPECT_EQ(Labels(HuntERR::ErrReport()), (std::vector<String>{u"CInstrContainer.Class_Initialize()", u"C.M()"}));
}

TEST_F(CInstContainerTest, StartsEmptyWithAListOfItsOwn) {
  const CInstContainer instruction;
  EXPECT_EQ(instruction.CmdType(), u"");
  EXPECT_EQ(instruction.FunctionName(), u"");
  ASSERT_NE(instruction.Params(), nullptr);
  EXPECT_EQ(instruction.Params()->Count(), 0U);
  EXPECT_NE(instruction.Params(), CInstContainer().Params());
}

TEST_F(CInstContainerTest, SettersReplaceWithoutValidation) {
  CInstContainer instruction;
  instruction.CmdType(u"no such type");
  instruction.FunctionName(u"");
  EXPECT_EQ(instruction.CmdType(), u"no such type");
  EXPECT_EQ(instruction.FunctionName(), u"");
  instruction.CmdType(u"SCPI");
  instruction.FunctionName(u"Send");
  EXPECT_EQ(instruction.CmdType(), u"SCPI");
  EXPECT_EQ(instruction.FunctionName(), u"Send");
}

TEST_F(CInstContainerTest, ParametersAreAddedToTheListThatWasGot) {
  const CInstContainer instruction;
  instruction.Params()->Add(u"TERMCHAR", u"Name");
  instruction.Params()->Add(u"LF", u"Value");
  ASSERT_EQ(instruction.Params()->Count(), 2U);
  EXPECT_EQ(instruction.Params()->Item(u"name").ToString(), u"TERMCHAR");
  EXPECT_EQ(instruction.Params()->Item(2).ToString(), u"LF");
}

TEST_F(CInstContainerTest, ParametersAreSharedByReference) {
  CInstContainer instruction;
  const auto list = std::make_shared<KeyedList<Value>>();
  instruction.Params(list);
  list->Add(u"*IDN?", u"Data");
  EXPECT_EQ(instruction.Params(), list);
  EXPECT_EQ(instruction.Params()->Item(u"Data").ToString(), u"*IDN?");
}

TEST_F(CInstContainerTest, TwoParametersWithOneKeyAreRefused) {
  const CInstContainer instruction;
  instruction.Params()->Add(u"first", u"Data");
  EXPECT_EQ(Raised([&] { instruction.Params()->Add(u"second", u"DATA"); }).Number, 457);
  EXPECT_EQ(instruction.Params()->Count(), 1U);
}

} // namespace
} // namespace portico
