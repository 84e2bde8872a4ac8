#pragma once

#include "drivers/ITransport.h"

#include <algorithm>
#include <deque>
#include <string>
#include <vector>

namespace portico::test {

/// A transport whose reads bring exactly the pieces that the test laid down, and time out behind them.
class ScriptedTransport final : public ITransport {
public:
  /// What passed through it; outlives the transport, which a session owns.
  struct Record {
    std::deque<Received> reads = {};
    std::deque<std::string> bytes = {};
    DriverResult openResult = {};
    DriverResult writeResult = {};
    std::vector<std::string> written = {};
    std::vector<TimePoint> deadlines = {};
    int opened = 0;
    int closed = 0;

    void Piece(std::string text, bool end = false) {
      reads.push_back({{}, text.size(), end});
      bytes.push_back(std::move(text));
    }
    void Fails(DriverStatus status) {
      reads.push_back({{status}});
      bytes.emplace_back();
    }
  };

  explicit ScriptedTransport(Record& record) : record_(record) {}

  DriverResult Open(TimePoint deadline) override {
    ++record_.opened;
    record_.deadlines.push_back(deadline);
    return record_.openResult;
  }
  void Close() noexcept override { ++record_.closed; }
  DriverResult Write(std::string_view bytes, TimePoint deadline) override {
    record_.written.emplace_back(bytes);
    record_.deadlines.push_back(deadline);
    return record_.writeResult;
  }
  Received Read(char* buffer, std::size_t /*size*/, TimePoint deadline) override {
    record_.deadlines.push_back(deadline);
    if (record_.reads.empty()) return {{DriverStatus::ReadTimeout}};
    Received received = record_.reads.front();
    std::copy(record_.bytes.front().begin(), record_.bytes.front().end(), buffer);
    record_.reads.pop_front();
    record_.bytes.pop_front();
    return received;
  }

private:
  Record& record_;
};

} // namespace portico::test
