#include "tap/TapBench.h"

#include "document/encoders/CHexEncoder.h"
#include "document/log/CMockTimeStampServer.h"
#include "document/log/LogReader.h"

#include <algorithm>

namespace portico::tap {
namespace {

class Collector final : public ILogVisitor {
public:
  void SessionOpened(const LogElement& session) override {
    Lines.push_back(session.Attribute("SessionCloseTimeStamp") ? "-" : "unclosed");
  }
  void Entity(const LogElement& entity) override {
    const auto data = CHexEncoder::TryDecode(entity.Text);
    ASSERT_TRUE(data);
    const String text = FromBytes(*data);
    ASSERT_TRUE(text.ends_with(NewLine));
    const std::string mark = entity.Name == "Instruction" ? "> " : entity.Name == "Response" ? "< " : "? ";
    Lines.push_back(mark + ToCodePage(text.substr(0, text.size() - NewLine.size())));
  }

  std::vector<std::string> Lines;
};

} // namespace

TapBench::TapBench() {
  gTimeStamper = New<CMockTimeStampServer>();
  auto log = New<CXMLDataStore>();
  log->Initialize(FromUtf8(Folder.At("talk.log")).Text, false);
  Record.emplace(Recorder::Outputs{log, &Shown, false, [this](const std::string& text) { Told.push_back(text); }});
  Place.emplace(*this, *Record);
}

TapBench::~TapBench() {
  Clients.clear();
  Instruments.clear();
  Record.reset();
  gTimeStamper = nullptr;
}

bool TapBench::Connect(std::unique_ptr<server::IServedConnection> end) {
  if (Reachable) Instruments.push_back(std::make_unique<Wire>(std::move(end)));
  return Reachable;
}

bool TapBench::ConnectFurther(std::unique_ptr<server::IServedConnection> end, std::uint16_t port) {
  FurtherPorts.push_back(port);
  return Connect(std::move(end));
}

void TapBench::Settle() {
  for (bool due = true; due;) {
    due = false;
    for (auto* side : {&Instruments, &Clients}) {
      for (std::size_t i = 0; i < side->size(); ++i) due = (*side)[i]->Serve(Now) || due;
    }
  }
}

Wire& TapBench::NewClient(const server::ConnectionFactory& factory) {
  Wire& client = *Clients.emplace_back(std::make_unique<Wire>(factory(1234)));
  Settle();
  return client;
}

void TapBench::Say(Wire& from, std::string_view bytes) {
  from.Send(bytes, Now);
  Settle();
}

void TapBench::EndInput(Wire& from) {
  from.EndInput(Now);
  Settle();
}

void TapBench::Break(Wire& from) {
  from.Break();
  Settle();
}

void TapBench::Pass(std::chrono::milliseconds time) {
  Now += time;
  Settle();
}

std::vector<std::string> TapBench::Logged() const {
  Collector collector;
  const LogReading reading = LogReader::Read(Folder.Read("talk.log"), collector);
  EXPECT_EQ(reading.Ending, LogReading::End::Complete);
  EXPECT_TRUE(reading.IsOurs());
  return std::move(collector.Lines);
}

} // namespace portico::tap
