#pragma once

#include "tap/Crossing.h"
#include "tap/IInstrumentLine.h"

#include <memory>

namespace portico::tap {

/// The place of the one client that the instrument has at a time.
class Place {
public:
  /// All must outlive it.
  Place(IInstrumentLine& line, Recorder& recorder) : Line(line), Record(recorder) {}

  /// Whether the client of the crossing has the place from now on. One that has it loses it if one of the sides has
  /// ended what it has to say: nobody else is to wait for a client that hangs up slowly.
  bool Take(const std::shared_ptr<Crossing>& crossing) {
    if (const auto taken = m_taken.lock()) {
      if (!taken->Ending()) return false;
      taken->GiveWay();
    }
    m_taken = crossing;
    return true;
  }
  /// The crossing of the client that has it; null if there is none.
  std::shared_ptr<Crossing> Taken() const { return m_taken.lock(); }

  IInstrumentLine& Line;
  Recorder& Record;

private:
  std::weak_ptr<Crossing> m_taken;
};

} // namespace portico::tap
