#include "drivers/InstrumentSession.h"

#include "drivers/wire/MessageReader.h"

#include <algorithm>

namespace portico {
namespace {

/// The caller's buffer while a message goes into it. The last byte stays free for the zero byte.
class MessageSink {
public:
  explicit MessageSink(std::span<char> buffer) : buffer_(buffer) {}

  void Append(std::string_view bytes) {
    const std::size_t stored = std::min(bytes.size(), buffer_.size() - 1 - stored_);
    std::copy_n(bytes.data(), stored, buffer_.data() + stored_);
    stored_ += stored;
  }

  /// Ends the message behind its data and answers the number of bytes delivered.
  std::int32_t Finish(std::size_t dataLength) {
    const std::size_t delivered = std::min(dataLength, buffer_.size() - 1);
    buffer_[delivered] = '\0';
    return static_cast<std::int32_t>(delivered + 1);
  }

  void Erase() { std::fill_n(buffer_.data(), stored_, '\0'); }

private:
  std::span<char> buffer_;
  std::size_t stored_ = 0;
};

} // namespace

InstrumentSession::InstrumentSession(const ResourceName& name, std::unique_ptr<ITransport> transport,
                                     const SessionOptions& options)
    : name_(name.Canonical()), transport_(std::move(transport)), options_(options) {}

DriverResult InstrumentSession::Open() {
  DriverResult result = transport_->Open(Deadline());
  connected_ = result.Succeeded();
  return result;
}

DriverResult InstrumentSession::Write(const std::string& text) {
  const TimePoint deadline = Deadline();
  if (!connected_) {
    if (DriverResult result = Reconnect(deadline); !result.Succeeded()) return result;
  }
  output_.assign(text);
  output_ += '\n';
  DriverResult result = transport_->Write(output_, deadline);
  if (!result.Succeeded()) Disconnect();
  return result;
}

DriverResult InstrumentSession::Read(std::span<char> buffer, std::int32_t& count) {
  count = 0;
  if (buffer.empty()) return {DriverStatus::InvalidBuffer};
  if (!connected_) return {DriverStatus::NotConnected, name_};
  const TimePoint deadline = Deadline();
  wire::MessageReader reader(attributes_.Termination());
  MessageSink sink(buffer);
  std::size_t length = 0;
  while (!reader.Complete()) {
    if (input_.Empty()) {
      if (DriverResult result = Fill(deadline); !result.Succeeded()) {
        sink.Erase();
        return result;
      }
    }
    const std::size_t taken = reader.Feed(input_.Unread());
    sink.Append(input_.Unread().substr(0, taken - std::min(taken, reader.TerminatorLength())));
    input_.Drop(taken);
    length += taken;
    if (input_.AtEndOfMessage()) reader.End();
  }
  // A carriage return that came before the rest of its terminator was stored as data: the zero byte replaces it.
  count = sink.Finish(length - reader.TerminatorLength());
  return {};
}

DriverResult InstrumentSession::Reconnect(TimePoint deadline) {
  DriverResult result = transport_->Open(deadline);
  if (!result.Succeeded()) return result;
  connected_ = true;
  if (options_.observer != nullptr) options_.observer->Reconnected(name_);
  return result;
}

void InstrumentSession::Disconnect() {
  transport_->Close();
  input_.Clear();
  connected_ = false;
}

DriverResult InstrumentSession::Fill(TimePoint deadline) {
  Received received = transport_->Read(input_.Space(), ReceiveBuffer::kCapacity, deadline);
  if (received.result.Succeeded()) {
    input_.Filled(received.count, received.end);
  } else {
    Disconnect();
  }
  return std::move(received.result);
}

} // namespace portico
