#include "framework/shared/CResponse.h"

#include "support/Allocation.h"
#include "support/ErrorReports.h"
#include "support/fixtures/FrameworkTest.h"

namespace portico {
namespace {

using test::Labels;
using test::OutOfMemory;

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
  EXPECT_EQ(Labels(OutOfMemory(1, [&] { Response.Initialize(7, text); })),
            (std::vector<String>{u"CResponse.Initialize(code,data)"}));
  Response.Initialize(7, text);
  EXPECT_EQ(Labels(OutOfMemory(1, [&] { Response.GetErrorMessage(); })),
            (std::vector<String>{u"CResponse.GetErrorMessage()"}));
  EXPECT_EQ(Labels(OutOfMemory(1, [&] { Response.GetError(); })),
            (std::vector<String>{u"CResponse.GetErrorMessage()", u"CResponse.GetError()"}));
  EXPECT_EQ(
      Labels(OutOfMemory(1, [&] { Response.GetResponseData(); })),
      (std::vector<String>{u"CResponse.GetErrorMessage()", u"CResponse.GetError()", u"CResponse.GetResponseData()"}));
}

} // namespace
} // namespace portico
