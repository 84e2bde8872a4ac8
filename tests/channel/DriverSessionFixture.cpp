#include "channel/DriverSessionFixture.h"

namespace portico::test {

DriverSessionTest::DriverSessionTest() {
  Driver->HandleOfFailure = Driver->Handle;
  Driver->Text.clear();
  Driver->Message = Terminated("It broke.\n");
  Driver->Found = "";
  Driver->OnDetail = [this](const std::string& call) { Details.push_back(call); };
  Driver->OnRead = [this] { return Delivered; };
  gInstrumentDriver = Driver;
  Session = New<CDriverSession>();
}

DriverSessionTest::~DriverSessionTest() {
  Session = nullptr;
  gInstrumentDriver = nullptr;
  HuntERR::Reset();
}

void DriverSessionTest::Open() {
  Session->OpenChannel(u"GPIB0::7");
  Details.clear();
}

std::string DriverSessionTest::Terminated(const std::string& text) { return text + '\0'; }

void DriverSessionTest::ExpectSuccess(const Ref<IResponse>& response, StringView data) {
  EXPECT_EQ(response->ErrorCode(), 0);
  EXPECT_EQ(response->ErrorMessage(), u"Success");
  EXPECT_EQ(response->ResponseData(), data);
}

void DriverSessionTest::ExpectFailure(const Ref<IResponse>& response, std::int32_t code, StringView message) {
  EXPECT_EQ(response->ErrorCode(), code);
  EXPECT_EQ(response->ErrorMessage(), message);
  EXPECT_EQ(response->ResponseData(), message);
}

} // namespace portico::test
