#pragma once

#include "drivers/ITransport.h"

#include <algorithm>
#include <chrono>
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace portico::test {

/// A transport whose reads bring exactly the pieces that the test laid down, and time out behind them.
class ScriptedTransport final : public drivers::ITransport {
public:
  /// What passed through it; outlives the transport, which a session owns.
  struct Record {
    std::deque<drivers::Received> reads = {};
    std::deque<std::string> bytes = {};
    drivers::DriverResult openResult = {};
    drivers::DriverResult writeResult = {};
    std::vector<std::string> written = {};
    std::vector<drivers::TimePoint> deadlines = {};
    bool marksEnd = false;
    bool stands = true;
    /// What clearing answers, with the time-outs that it was given.
    bool clears = false;
    std::vector<std::chrono::milliseconds> clearings = {};
    std::function<void()> onClear = {};
    /// Of giving local control back.
    std::vector<drivers::TimePoint> returns = {};
    drivers::DriverResult returnResult = {};
    int opened = 0;
    int closed = 0;

    void Piece(std::string text, bool end = false, bool anew = false) {
      reads.push_back({{}, text.size(), end, anew});
      bytes.push_back(std::move(text));
    }
    void Fails(drivers::DriverStatus status) {
      reads.push_back({{status}});
      bytes.emplace_back();
    }
  };

  explicit ScriptedTransport(Record& record) : m_record(record) {}

  drivers::DriverResult Open(drivers::TimePoint deadline) override {
    ++m_record.opened;
    m_record.stands = true;
    m_record.deadlines.push_back(deadline);
    return m_record.openResult;
  }
  void Close() noexcept override { ++m_record.closed; }
  drivers::DriverResult Write(std::string_view bytes, drivers::TimePoint deadline) override {
    m_record.written.emplace_back(bytes);
    m_record.deadlines.push_back(deadline);
    return m_record.writeResult;
  }
  drivers::Received Read(char* buffer, std::size_t /*size*/, drivers::TimePoint deadline) override {
    m_record.deadlines.push_back(deadline);
    if (m_record.reads.empty()) return {{drivers::DriverStatus::ReadTimeout}};
    drivers::Received received = m_record.reads.front();
    std::copy(m_record.bytes.front().begin(), m_record.bytes.front().end(), buffer);
    m_record.reads.pop_front();
    m_record.bytes.pop_front();
    return received;
  }
  bool MarksEnd() const override { return m_record.marksEnd; }
  bool Stands() override { return m_record.stands; }
  bool Clear(std::chrono::milliseconds timeout) override {
    m_record.clearings.push_back(timeout);
    if (m_record.onClear) m_record.onClear();
    return m_record.clears;
  }
  drivers::DriverResult GoToLocal(drivers::TimePoint deadline) override {
    m_record.returns.push_back(deadline);
    return m_record.returnResult;
  }

private:
  Record& m_record;
};

} // namespace portico::test
