#include "support/doubles/Vxi11Instrument.h"

#include "drivers/sockets/TcpTransport.h"
#include "wire/RpcMessage.h"
#include "wire/RpcRecord.h"
#include "wire/Vxi11Messages.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <optional>

namespace portico::test {
namespace {

using server::IServedConnection;
using server::TimePoint;
using wire::XdrReader;
namespace Vxi11 = wire::Vxi11;

constexpr std::uint32_t LongestPiece = 64;

} // namespace

/// What all connections share. The server's thread has the links to itself.
class Vxi11Instrument::Instrument {
public:
  struct Link {
    std::string input;
    struct Answer {
      std::string text;
      bool whole = true;
    };
    std::deque<Answer> answers;
    /// Sent again whenever it has been sent.
    std::string refrain;
    /// The connection ends once the answers are read.
    bool closing = false;
    bool aborted = false;

    bool HasAnswer() const { return !answers.empty() || !refrain.empty(); }
  };

  explicit Instrument(InstrumentScript script) : m_script(std::move(script)) {}

  std::int32_t MakeLink() {
    m_links[++m_lastLink];
    return m_lastLink;
  }
  /// Null if there is none of that number.
  Link* Find(std::int32_t link) {
    const auto found = m_links.find(link);
    return found == m_links.end() ? nullptr : &found->second;
  }
  void Drop(std::int32_t link) { m_links.erase(link); }
  Link* Last() { return Find(m_lastLink); }

  void Take(Link& link, std::string_view bytes, bool end) {
    link.input.append(bytes);
    std::string command;
    while (end && TakeCommand(link.input, command)) React(link, command);
    const std::lock_guard lock(m_mutex);
    m_received.append(bytes);
    m_changed.notify_all();
  }

  std::string Received() const {
    const std::lock_guard lock(m_mutex);
    return m_received;
  }
  void WaitForReceived(const std::string& bytes) const {
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] { return m_received.ends_with(bytes); });
  }

private:
  void React(Link& link, const std::string& command) const {
    const auto found = m_script.find(command);
    if (found == m_script.end()) return;
    const Reaction& reaction = found->second;
    switch (reaction.kind) {
    case Reaction::Kind::Answer:
    case Reaction::Kind::Part:
      link.answers.push_back({reaction.text, reaction.kind == Reaction::Kind::Answer});
      break;
    case Reaction::Kind::Silence:
      break;
    case Reaction::Kind::Close:
      if (!reaction.text.empty()) link.answers.push_back({reaction.text, false});
      link.closing = true;
      break;
    case Reaction::Kind::Endless:
      link.refrain = reaction.text;
      break;
    }
  }

  const InstrumentScript m_script;
  std::map<std::int32_t, Link> m_links;
  std::int32_t m_lastLink = 0;
  mutable std::mutex m_mutex;
  mutable std::condition_variable m_changed;
  std::string m_received;
};

/// A connection whose input comes in RPC records.
class Vxi11Instrument::Channel : public IServedConnection {
public:
  explicit Channel(std::shared_ptr<Instrument> instrument) : m_instrument(std::move(instrument)) {}

  void Receive(std::string_view bytes, TimePoint now) final {
    while (!bytes.empty()) {
      bytes.remove_prefix(m_record.Feed(bytes));
      if (!m_record.Complete()) return;
      Handle(m_record.Content(), now);
      m_record.Restart();
    }
  }
  void Collect(std::string& output, TimePoint /*now*/) override { output += std::exchange(m_output, {}); }
  bool AcceptsInput() const final { return true; }
  std::optional<TimePoint> NextEvent() const override { return std::nullopt; }
  bool Finished(bool inputEnded) const override { return inputEnded; }

protected:
  virtual void Handle(std::string_view record, TimePoint now) = 0;

  template <wire::XdrRecord Results>
  void Reply(std::uint32_t xid, const Results& results) {
    const std::size_t begin = wire::BeginRpcRecord(m_output);
    wire::XdrWriter writer(m_output);
    wire::WriteRpcReply(writer, {xid});
    writer.Put(results);
    wire::EndRpcRecord(m_output, begin);
  }

  bool OutputIsEmpty() const { return m_output.empty(); }
  Instrument& TheInstrument() const { return *m_instrument; }

private:
  const std::shared_ptr<Instrument> m_instrument;
  wire::RpcRecordReader m_record{65536};
  std::string m_output;
};

class Vxi11Instrument::CoreChannel final : public Channel {
public:
  CoreChannel(std::shared_ptr<Instrument> instrument, const std::uint16_t& abortPort)
      : Channel(std::move(instrument)), m_abortPort(abortPort) {}
  ~CoreChannel() override { TheInstrument().Drop(m_link); }

  void Collect(std::string& output, TimePoint now) override {
    AnswerRead(now);
    Channel::Collect(output, now);
  }
  std::optional<TimePoint> NextEvent() const override {
    const Instrument::Link* link = TheInstrument().Find(m_link);
    if (!m_read || link == nullptr) return std::nullopt;
    return link->HasAnswer() || link->aborted ? TimePoint() : m_read->deadline;
  }
  bool Finished(bool inputEnded) const override {
    const Instrument::Link* link = TheInstrument().Find(m_link);
    return inputEnded || (link != nullptr && link->closing && !link->HasAnswer() && OutputIsEmpty());
  }

protected:
  void Handle(std::string_view record, TimePoint now) override {
    XdrReader reader(record);
    wire::RpcCall call;
    wire::ReadRpcCall(reader, call);
    switch (static_cast<Vxi11::CoreProcedure>(call.Procedure)) {
    case Vxi11::CoreProcedure::CreateLink:
      m_link = TheInstrument().MakeLink();
      Reply(call.Xid, Vxi11::CreateLinkResult{Vxi11::Error::None, m_link, m_abortPort, LongestPiece});
      break;
    case Vxi11::CoreProcedure::DeviceWrite:
      Write(call.Xid, Arguments<Vxi11::DeviceWriteArguments>(reader));
      break;
    case Vxi11::CoreProcedure::DeviceRead: {
      const auto arguments = Arguments<Vxi11::DeviceReadArguments>(reader);
      m_read = {call.Xid, arguments.RequestSize, now + std::chrono::milliseconds(arguments.IoTimeout)};
      break;
    }
    case Vxi11::CoreProcedure::DeviceClear:
      *TheInstrument().Find(m_link) = {};
      [[fallthrough]];
    default:
      Reply(call.Xid, Vxi11::ErrorResult());
    }
  }

private:
  struct PendingRead {
    std::uint32_t xid = 0;
    std::size_t size = 0;
    TimePoint deadline;
  };

  template <typename Type>
  static Type Arguments(XdrReader& reader) {
    Type arguments;
    reader.Get(arguments);
    return arguments;
  }

  void Write(std::uint32_t xid, const Vxi11::DeviceWriteArguments& arguments) {
    const bool fits = arguments.Data.size() <= LongestPiece;
    if (fits) {
      TheInstrument().Take(*TheInstrument().Find(m_link), arguments.Data, (arguments.Flags & Vxi11::Flag::End) != 0);
    }
    Reply(xid, Vxi11::DeviceWriteResult{fits ? Vxi11::Error::None : Vxi11::Error::Parameter,
                                        fits ? static_cast<std::uint32_t>(arguments.Data.size()) : 0});
  }

  void AnswerRead(TimePoint now) {
    Instrument::Link* link = TheInstrument().Find(m_link);
    if (!m_read || link == nullptr) return;
    Vxi11::DeviceReadResult result;
    std::string data;
    if (std::exchange(link->aborted, false)) {
      result.Error = Vxi11::Error::Abort;
    } else if (link->HasAnswer()) {
      data = TakeAnswer(*link, result.Reason);
      result.Data = data;
    } else if (now >= m_read->deadline) {
      result.Error = Vxi11::Error::IoTimeout;
    } else {
      return;
    }
    Reply(m_read->xid, result);
    m_read.reset();
  }

  std::string TakeAnswer(Instrument::Link& link, std::int32_t& reason) const {
    if (link.answers.empty()) return link.refrain;
    Instrument::Link::Answer& answer = link.answers.front();
    std::string data = answer.text.substr(0, m_read->size);
    answer.text.erase(0, data.size());
    if (data.size() == m_read->size) reason |= Vxi11::Reason::RequestSizeReached;
    if (!answer.text.empty()) return data;
    if (answer.whole) reason |= Vxi11::Reason::End;
    link.answers.pop_front();
    return data;
  }

  const std::uint16_t m_abortPort;
  std::int32_t m_link = 0;
  std::optional<PendingRead> m_read;
};

class Vxi11Instrument::AbortChannel final : public Channel {
public:
  using Channel::Channel;

protected:
  void Handle(std::string_view record, TimePoint /*now*/) override {
    XdrReader reader(record);
    wire::RpcCall call;
    wire::ReadRpcCall(reader, call);
    Vxi11::LinkArguments arguments;
    reader.Get(arguments);
    Instrument::Link* link = TheInstrument().Find(arguments.Link);
    if (link != nullptr) link->aborted = true;
    Reply(call.Xid, Vxi11::ErrorResult{link != nullptr ? Vxi11::Error::None : Vxi11::Error::InvalidLink});
  }
};

/// Takes from the test what the instrument is to answer.
class Vxi11Instrument::BackDoor final : public Channel {
public:
  using Channel::Channel;

protected:
  void Handle(std::string_view record, TimePoint /*now*/) override {
    if (Instrument::Link* link = TheInstrument().Last()) link->answers.push_back({std::string(record)});
    Reply(0, Vxi11::ErrorResult());
  }
};

Vxi11Instrument::Vxi11Instrument(InstrumentScript script)
    : m_instrument(std::make_shared<Instrument>(std::move(script))),
      m_server({{"127.0.0.1", 0,
                 [this](std::uint16_t) { return std::make_unique<CoreChannel>(m_instrument, m_server.Port(1)); }},
                {"127.0.0.1", 0, [this](std::uint16_t) { return std::make_unique<AbortChannel>(m_instrument); }},
                {"127.0.0.1", 0, [this](std::uint16_t) { return std::make_unique<BackDoor>(m_instrument); }}}),
      m_thread([this] { m_server.Run(); }) {}

Vxi11Instrument::~Vxi11Instrument() {
  m_server.Stop();
  m_thread.join();
}

std::string Vxi11Instrument::ResourceName() const { return "TCPIP::127.0.0.1," + std::to_string(Port()) + "::INSTR"; }

std::string Vxi11Instrument::Received() const { return m_instrument->Received(); }

void Vxi11Instrument::WaitForReceived(const std::string& bytes) const { m_instrument->WaitForReceived(bytes); }

void Vxi11Instrument::Send(const std::string& bytes) {
  std::string record;
  const std::size_t begin = wire::BeginRpcRecord(record);
  record += bytes;
  wire::EndRpcRecord(record, begin);
  drivers::TcpTransport door("127.0.0.1", m_server.Port(2));
  const TimePoint deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
  door.Open(deadline);
  door.Write(record, deadline);
  // What the test does next comes behind it.
  char taken = 0;
  door.Read(&taken, 1, deadline);
}

} // namespace portico::test
