#include "simulator/ClientConnection.h"

#include <array>
#include <cerrno>
#include <string_view>
#include <utility>

#include <sys/socket.h>

namespace portico::simulator {
namespace {

// What Instrument::AcceptsInput() promises room for.
constexpr std::size_t kReceiveBytes = 65536;

/// Answers are gathered up to this size before they are sent: a client may ask many questions at once.
constexpr std::size_t kSendBytes = 65536;

bool WouldBlock(int error) { return error == EAGAIN || error == EWOULDBLOCK || error == EINTR; }

} // namespace

ClientConnection::ClientConnection(FileDescriptor socket, std::unique_ptr<Instrument> instrument)
    : socket_(std::move(socket)), instrument_(std::move(instrument)) {}

std::optional<TimePoint> ClientConnection::NextEvent() const {
  if (!output_.empty()) return std::nullopt; // first the client takes what there is
  return instrument_->NextEvent();
}

void ClientConnection::Exchange(bool readable, TimePoint now) {
  if (readable) Receive(now);
  Send(now);
  // A client that only ended its own side still gets the answers that are under way.
  const bool over = inputEnded_ || instrument_->CloseRequested();
  if (over && output_.empty() && !instrument_->NextEvent()) finished_ = true;
}

void ClientConnection::Receive(TimePoint now) {
  std::array<char, kReceiveBytes> buffer; // not cleared: that would cost more than a short message does
  const ssize_t count = recv(socket_.Get(), buffer.data(), buffer.size(), 0);
  if (count > 0) {
    instrument_->Write(std::string_view(buffer.data(), static_cast<std::size_t>(count)), now);
  } else if (count == 0) {
    inputEnded_ = true;
  } else if (!WouldBlock(errno)) {
    finished_ = true;
  }
}

void ClientConnection::Send(TimePoint now) {
  while (!finished_) {
    if (output_.empty()) Collect(now);
    if (output_.empty()) return;
    const ssize_t count = send(socket_.Get(), output_.data() + sent_, output_.size() - sent_, MSG_NOSIGNAL);
    if (count < 0) {
      if (!WouldBlock(errno)) finished_ = true;
      return;
    }
    sent_ += static_cast<std::size_t>(count);
    if (sent_ == output_.size()) {
      output_.clear();
      sent_ = 0;
    }
  }
}

void ClientConnection::Collect(TimePoint now) {
  while (output_.size() < kSendBytes) {
    auto response = instrument_->Read(now);
    if (!response) return;
    if (output_.empty()) {
      output_ = std::move(*response);
    } else {
      output_ += *response;
    }
  }
}

} // namespace portico::simulator
