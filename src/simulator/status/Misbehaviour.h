#pragma once

#include "simulator/status/Random.h"
#include "simulator/status/SimulatedConnection.h"

#include <cstdint>
#include <vector>

namespace portico::simulator {

/// What may be wrong with an answer.
enum class AnswerFault {
  None,
  Late,    ///< it comes later than its client waits
  Lost,    ///< it never comes
  Endless, ///< it never ends
  Stray,   ///< on the wire, bytes that belong to nothing come before it
  Half,    ///< half of its bytes come over the wire, and never the rest
  Drop,    ///< the connection is closed in its place
  Number,  ///< it bears a wrong number, where the protocol numbers messages or transactions
};

/// How a device misbehaves, on whichever connection: the faults that are asked for, and which of them it is now.
///
/// An answer's fault is picked when the answer has been made. `Late`, `Lost` and `Endless` are the device's business,
/// `Stray`, `Half` and `Drop` that of FaultyConnection, over any protocol. `Number` is the business of each protocol's
/// server: it asks `Take(AnswerFault::Number)` when it sends what Connection::Read() has just given it. A server that
/// knows locks refuses them while `LocksRefused`.
class Misbehaviour {
public:
  TimePoint::duration Delay{};                                   ///< by which the next answer is late
  TimePoint::duration Lateness = std::chrono::milliseconds(100); ///< of each `Late` answer
  TimePoint::duration AcceptDelay{}; ///< after which the first input of a new connection is taken
  bool Silent = false;               ///< no answer is ever given
  bool LocksRefused = false;         ///< nobody gets a lock

  /// The next answer has this fault.
  void Next(AnswerFault fault) { m_next = fault; }
  /// Each answer has, by this chance, from 0 to 1, one of these faults.
  void SetRate(double rate, std::vector<AnswerFault> faults);
  /// Begins the row of random numbers of the rate.
  void Seed(std::uint64_t seed) { m_random = Random(seed); }
  /// How many answers have had a fault.
  std::uint64_t Count() const { return m_count; }

  /// The fault of the answer that has been made.
  AnswerFault Pick();

  /// An answer is handed to its connection with this fault.
  void Deliver(AnswerFault fault) { m_delivered = fault; }
  /// Whether the answer that was handed over last has this fault, which then is dealt with.
  bool Take(AnswerFault fault);

private:
  AnswerFault m_next = AnswerFault::None;
  double m_rate = 0;
  std::vector<AnswerFault> m_faults;
  Random m_random{0};
  std::uint64_t m_count = 0;
  AnswerFault m_delivered = AnswerFault::None;
};

} // namespace portico::simulator
