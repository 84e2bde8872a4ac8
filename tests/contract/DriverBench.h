#pragma once

#include "contract/RecordingObserver.h"
#include "support/doubles/InstrumentScript.h"
#include "system/Cancellation.h"

#include <chrono>
#include <cstdint>
#include <gmock/gmock.h>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace portico::test {

/// A driver and an instrument for it that follows a script.
class DriverBench {
public:
  virtual ~DriverBench() = default;

  virtual IExtendedDriver& Driver() = 0;
  virtual std::string Name() const = 0;
  /// Of an instrument of the same script that opens beside the first: the same one where it lets several in.
  virtual std::string SecondName() const { return Name(); }
  virtual std::string CanonicalName() const = 0;
  /// As messages name the instrument's place.
  virtual std::string Place() const = 0;
  /// Waits until all that the instrument has received, over all connections, ends in `bytes`.
  virtual std::string ReceivedUpTo(const std::string& bytes) = 0;
  /// The instrument sends this, asked or not, as an answer or as the rest of one that it began. It ends there.
  virtual void Send(const std::string& bytes) = 0;

  // However busy the machine is, nothing may time out but what is to: either a call has more time than its time-out
  // says, or it begins when there is nothing left to wait for.

  /// The next call has no more time than its time-out.
  virtual void Hurry() {}
  /// Waits until the instrument has done all that it does about what it was sent, which ends in `bytes`.
  virtual void AwaitReaction(const std::string& /*bytes*/) {}

  RecordingObserver observer;
  /// The order to give up, which the driver heeds if the bench says that it cancels.
  system::Cancellation cancellation;
};

/// What a transport is like, where the rules differ.
struct TransportTraits {
  /// How it gets into step again before the first command after a time-out.
  enum class RecoveryKind { FreshConnection, DeviceClear, Listening };

  /// Marks the ends of messages; if not, it carries a plain stream of bytes.
  bool marksEnd = false;
  RecoveryKind recovery = RecoveryKind::FreshConnection;
  /// An observer hears of what the driver does.
  bool tells = true;
  /// The order to give up ends a call that is under way.
  bool cancels = false;
  /// Does more than the nine functions.
  bool isExtended = true;
  /// Knows a way back to the instrument's front panel.
  bool returnsToLocal = false;
};

/// What the suites run with: the name is that of the driver. Each stands in a file of its own, which DriverBenches.cpp
/// lists.
struct DriverBenchKind {
  const char* name;
  std::unique_ptr<DriverBench> (*make)(InstrumentScript script, std::chrono::milliseconds timeout);
  TransportTraits traits = {};
};

template <typename Bench>
std::unique_ptr<DriverBench> MakeBench(InstrumentScript script, std::chrono::milliseconds timeout) {
  return std::make_unique<Bench>(std::move(script), timeout);
}

std::vector<DriverBenchKind> AllDriverBenches();

/// Those that a rule is for.
template <typename Predicate>
std::vector<DriverBenchKind> DriverBenchesWhere(Predicate suits) {
  std::vector<DriverBenchKind> kinds = AllDriverBenches();
  std::erase_if(kinds, [&](const DriverBenchKind& kind) { return !suits(kind.traits); });
  return kinds;
}

inline void PrintTo(const DriverBenchKind& kind, std::ostream* stream) { *stream << kind.name; }

inline std::string BenchName(const testing::TestParamInfo<DriverBenchKind>& info) { return info.param.name; }

using drivers::DriverStatus;
using drivers::Number;

inline constexpr std::int32_t Success = 0;

/// What one read answered.
struct ReadOutcome {
  std::int32_t status = 0;
  std::int32_t count = 0;
  /// The delivered bytes, the last one included.
  std::string bytes;
};

/// Runs each test with a bench of its own.
class DriverContract : public testing::TestWithParam<DriverBenchKind> {
protected:
  /// Long enough never to be over by accident.
  static constexpr auto Patient = std::chrono::milliseconds(5000);
  /// For tests in which a time-out happens.
  static constexpr auto Brief = std::chrono::milliseconds(250);

  /// Sets the bench up and opens `session`.
  void Start(InstrumentScript script, std::chrono::milliseconds timeout = Patient);

  IExtendedDriver& Driver() { return bench->Driver(); }
  std::int32_t Open() { return Open(bench->Name()); }
  std::int32_t OpenSecond() { return Open(bench->SecondName()); }
  std::int32_t Write(const std::string& text);
  /// Writes the command and its carriage return.
  void Ask(const std::string& command);
  ReadOutcome Read(std::int32_t size = 1024);
  /// The same, with the time-out that the test was started with.
  ReadOutcome ReadBriefly(std::int32_t size = 1024);
  /// Asks, and gives the answer's data.
  std::string Query(const std::string& command);
  std::string Message(std::int32_t status, std::int32_t ofSession);

  std::unique_ptr<DriverBench> bench;
  std::int32_t session = 0;

private:
  std::int32_t Open(const std::string& name);

  /// All that was written.
  std::string m_written;
};

} // namespace portico::test
