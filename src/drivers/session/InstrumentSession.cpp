#include "drivers/session/InstrumentSession.h"

#include "drivers/session/MessageReader.h"

#include <algorithm>

namespace portico::drivers {
namespace {

/// The caller's buffer while a message goes into it. The last byte stays free for the zero byte.
class MessageSink {
public:
  explicit MessageSink(std::span<char> buffer) : m_buffer(buffer) {}

  void Append(std::string_view bytes) {
    const std::size_t stored = std::min(bytes.size(), m_buffer.size() - 1 - m_stored);
    std::copy_n(bytes.data(), stored, m_buffer.data() + m_stored);
    m_stored += stored;
  }

  /// Ends the message behind its data and answers the number of bytes delivered.
  std::int32_t Finish(std::size_t dataLength) {
    const std::size_t delivered = std::min(dataLength, m_buffer.size() - 1);
    m_buffer[delivered] = '\0';
    return static_cast<std::int32_t>(delivered + 1);
  }

  void Erase() { std::fill_n(m_buffer.data(), m_stored, '\0'); }

private:
  std::span<char> m_buffer;
  std::size_t m_stored = 0;
};

} // namespace

InstrumentSession::InstrumentSession(const ResourceName& name, std::unique_ptr<ITransport> transport,
                                     const SessionOptions& options)
    : m_name(name.Canonical()), m_transport(std::move(transport)), m_options(options) {
  if (options.Observer != nullptr) m_transport->OnWait([observer = options.Observer] { observer->Waits(); });
}

DriverResult InstrumentSession::Open() {
  m_connection = m_transport->Open(Deadline());
  return m_connection;
}

DriverResult InstrumentSession::Write(const std::string& text) {
  const TimePoint deadline = Deadline();
  if (!m_connection.Succeeded()) {
    if (DriverResult result = Reconnect(deadline); !result.Succeeded()) return result;
  }
  m_output.assign(text);
  m_output += '\n';
  DriverResult result = m_transport->Write(m_output, deadline);
  if (!result.Succeeded()) return Disconnect(std::move(result));
  return result;
}

DriverResult InstrumentSession::Read(std::span<char> buffer, std::int32_t& count) {
  count = 0;
  if (buffer.empty()) return {DriverStatus::InvalidBuffer};
  if (!m_connection.Succeeded()) return {DriverStatus::NotConnected, ReasonFor(m_connection)};
  const TimePoint deadline = Deadline();
  MessageReader reader(m_attributes.Termination());
  MessageSink sink(buffer);
  std::size_t length = 0;
  while (!reader.Complete()) {
    if (m_input.Empty()) {
      if (DriverResult result = Fill(deadline); !result.Succeeded()) {
        sink.Erase();
        return result;
      }
    }
    const std::size_t taken = reader.Feed(m_input.Unread());
    sink.Append(m_input.Unread().substr(0, taken - std::min(taken, reader.TerminatorLength())));
    m_input.Drop(taken);
    length += taken;
    if (m_input.AtEndOfMessage()) reader.End();
  }
  // A carriage return that came before the rest of its terminator was stored as data: the zero byte replaces it.
  length -= reader.TerminatorLength();
  count = sink.Finish(length);
  if (length + 1 >= buffer.size() && m_options.Observer != nullptr) {
    m_options.Observer->AnswerFilledBuffer(m_name, length);
  }
  return {};
}

DriverResult InstrumentSession::Reconnect(TimePoint deadline) {
  m_connection = m_transport->Open(deadline);
  if (m_connection.Succeeded() && m_options.Observer != nullptr) m_options.Observer->Reconnected(m_name);
  return m_connection;
}

DriverResult InstrumentSession::Disconnect(DriverResult reason) {
  m_transport->Close();
  m_input.Clear();
  m_connection = std::move(reason);
  return m_connection;
}

DriverResult InstrumentSession::Fill(TimePoint deadline) {
  Received received = m_transport->Read(m_input.Space(), ReceiveBuffer::Capacity, deadline);
  if (!received.Result.Succeeded()) return Disconnect(std::move(received.Result));
  m_input.Filled(received.Count, received.End);
  return {};
}

} // namespace portico::drivers
