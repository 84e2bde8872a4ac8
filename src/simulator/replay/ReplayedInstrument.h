#pragma once

#include "simulator/devices/Instrument.h"
#include "simulator/replay/ReplayBook.h"

#include <string>

namespace portico::simulator {

/// The instrument of a recorded conversation: it answers each message as a whole with what stood behind it there, and
/// keeps silent where nothing did. All its connections are one conversation.
///
/// A message that never occurred is an undefined header. The error query brings the errors of this instrument's own
/// queue first and then what was recorded, or, where it never was, that there is none. `*CLS` empties that queue.
class ReplayedInstrument final : public Instrument {
public:
  enum class Order {
    Free,
    Demanded, ///< where it is left, that is an execution error; the answer comes all the same
  };

  /// `seed` is that of its faults.
  ReplayedInstrument(ReplayBook book, Order order, std::uint64_t seed);

  /// Empty if nobody had asked for it.
  std::string_view Identification() const override { return m_identification; }

private:
  std::shared_ptr<MessageExchange> Join() override;
  void Answer(std::string_view message);

  ReplayBook m_book;
  const Order m_order;
  const std::string m_identification;
};

} // namespace portico::simulator
