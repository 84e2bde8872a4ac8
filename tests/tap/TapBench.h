#pragma once

#include "server/IServedConnection.h"
#include "support/Files.h"
#include "support/fixtures/FrameworkTest.h"
#include "tap/Place.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace portico::tap {

/// One connection as the server has it, with the test at the other end of its wire.
class Wire {
public:
  explicit Wire(std::unique_ptr<server::IServedConnection> end) : m_end(std::move(end)) {}

  /// The far end sends.
  void Send(std::string_view bytes, server::TimePoint now) {
    if (!m_end) return;
    m_end->Receive(bytes, now);
    Exchange(now);
  }
  /// It ends its side.
  void EndInput(server::TimePoint now) {
    if (!m_end || m_inputEnded) return;
    m_inputEnded = true;
    m_end->EndInput(now);
    Exchange(now);
  }
  /// It breaks the connection.
  void Break() { m_end.reset(); }

  /// Does what the server does when the connection is due; false if it is not.
  bool Serve(server::TimePoint now) {
    if (!m_end) return false;
    const auto next = m_end->NextEvent();
    if (!next || *next > now) return false;
    Exchange(now);
    return true;
  }

  bool Open() const { return m_end != nullptr; }
  bool Listens() const { return m_end && m_end->AcceptsInput(); }

  std::string Got;          ///< by the far end
  bool OutputEnded = false; ///< it was told that nothing more comes

private:
  void Exchange(server::TimePoint now) {
    std::string output;
    do {
      Got += std::exchange(output, {});
      m_end->Collect(output, now);
    } while (!output.empty());
    OutputEnded = OutputEnded || m_end->OutputEnded();
    if (m_end->Finished(m_inputEnded)) Break();
  }

  std::unique_ptr<server::IServedConnection> m_end;
  bool m_inputEnded = false;
};

/// Crossings between clients and an instrument that are the test's, in a time that it tells.
class TapBench : public test::FrameworkTest, public IInstrumentLine {
protected:
  TapBench();
  ~TapBench() override;

  bool Connect(std::unique_ptr<server::IServedConnection> end) override;
  bool ConnectFurther(std::unique_ptr<server::IServedConnection> end, std::uint16_t port) override;

  /// Serves everybody until nobody is due.
  void Settle();
  /// A client of the factory that comes now.
  Wire& NewClient(const server::ConnectionFactory& factory);
  void Say(Wire& from, std::string_view bytes);
  void EndInput(Wire& from);
  void Break(Wire& from);
  void Pass(std::chrono::milliseconds time);

  /// The log as a line for each session and message: "-", "> *IDN?", "< answer"; "unclosed" behind a session without
  /// its close stamp.
  std::vector<std::string> Logged() const;
  /// The recorder is over, and its log whole.
  void EndRecording() { Record.reset(); }

  const test::TemporaryFolder Folder;
  std::vector<std::string> Told;
  std::ostringstream Shown;
  std::optional<Recorder> Record;
  std::optional<tap::Place> Place;
  bool Reachable = true;
  server::TimePoint Now{std::chrono::hours(1)};
  std::vector<std::unique_ptr<Wire>> Clients;
  std::vector<std::unique_ptr<Wire>> Instruments;
  std::vector<std::uint16_t> FurtherPorts;
};

} // namespace portico::tap
