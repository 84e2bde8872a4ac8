#include "framework/shared/CInstContainer.h"
#include "framework/shared/CResponse.h"

#include "support/Allocation.h"
#include "support/ErrorReports.h"
#include "support/fixtures/FrameworkTest.h"

namespace portico {
namespace {

using test::Labels;
using test::Raised;

/// The labels of a call that has no memory left.
template <class Call>
std::vector<String> LabelsWithoutMemory(Call call) {
  return Labels(Raised([&] {
    const test::FailingAllocation noMemory;
    call();
  }));
}

class CResponseTest : public test::FrameworkTest {
protected:
  CResponse Response;
};

TEST_F(CResponseTest, StartsAsAnEmptySuccess) {
  EXPECT_EQ(Response.ErrorCode(), 0);
  EXPECT_EQ(Response.ErrorMessage(), u"Success");
  EXPECT_EQ(Response.ResponseData(), u"");
}

TEST_F(CResponseTest, ASuccessHoldsItsData) {
  Response.Initialize(0, u"+1.25E+00");
  EXPECT_EQ(Response.GetErrorCode(), 0);
  EXPECT_EQ(Response.GetErrorMessage(), u"Success");
  EXPECT_EQ(Response.GetError(), u"Success");
  EXPECT_EQ(Response.GetResponseData(), u"+1.25E+00");
}

TEST_F(CResponseTest, AFailureShowsItsMessageInPlaceOfData) {
  for (const std::int32_t code : {-1073807339, 7}) {
    Response.Initialize(code, u"Timeout expired.");
    EXPECT_EQ(Response.GetErrorCode(), code);
    EXPECT_EQ(Response.GetErrorMessage(), u"Timeout expired.");
    EXPECT_EQ(Response.GetError(), u"Timeout expired.");
    EXPECT_EQ(Response.GetResponseData(), u"Timeout expired.");
  }
}

TEST_F(CResponseTest, TheInterfaceForwardsToItsOwnOperations) {
  Response.Initialize(7, u"Timeout expired.");
  const IResponse& response = Response;
  EXPECT_EQ(response.ErrorCode(), 7);
  EXPECT_EQ(response.ErrorMessage(), u"Timeout expired.");
  EXPECT_EQ(response.ResponseData(), u"Timeout expired.");
}

TEST_F(CResponseTest, ASuccessAfterAFailureForgetsTheMessage) {
  Response.Initialize(7, u"Timeout expired.");
  Response.Initialize(0, u"");
  EXPECT_EQ(Response.GetErrorMessage(), u"Success");
  EXPECT_EQ(Response.GetResponseData(), u"");
}

TEST_F(CResponseTest, FailuresStandUnderTheirLabels) {
  const String text(1000, u'x');
  EXPECT_EQ(LabelsWithoutMemory([&] { Response.Initialize(7, text); }),
            (std::vector<String>{u"CResponse.Initialize(code,data)"}));
  Response.Initialize(7, text);
  EXPECT_EQ(LabelsWithoutMemory([&] { Response.GetErrorMessage(); }),
            (std::vector<String>{u"CResponse.GetErrorMessage()"}));
  EXPECT_EQ(LabelsWithoutMemory([&] { Response.GetError(); }),
            (std::vector<String>{u"CResponse.GetErrorMessage()", u"CResponse.GetError()"}));
  EXPECT_EQ(
      LabelsWithoutMemory([&] { Response.GetResponseData(); }),
      (std::vector<String>{u"CResponse.GetErrorMessage()", u"CResponse.GetError()", u"CResponse.GetResponseData()"}));
}

class CInstContainerTest : public test::FrameworkTest {};

TEST_F(CInstContainerTest, FailuresStandUnderTheLabelsOfItsOldName) {
  const String text(1000, u'x');
  CInstContainer instruction;
  EXPECT_EQ(LabelsWithoutMemory([&] { instruction.CmdType(text); }),
            (std::vector<String>{u"CInstrContainer.CmdType(newValue)"}));
  EXPECT_EQ(LabelsWithoutMemory([&] { instruction.FunctionName(text); }),
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

} // namespace
} // namespace portico
