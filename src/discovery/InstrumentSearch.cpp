#include "discovery/InstrumentSearch.h"

#include "discovery/AttachedInstruments.h"

#include <iterator>
#include <system_error>
#include <utility>

namespace portico::discovery {

void InstrumentSearch::Start(const std::vector<String>& known) {
  Stop();
  m_told = ToldInstruments(known);
  m_attached = AttachedInstruments();
  m_vxi11.emplace();
  try {
    m_mdns.emplace();
  } catch (const std::system_error&) { // no thread is to be had, and so nothing is found there
  }
}

std::vector<FoundInstrument> InstrumentSearch::Take() {
  std::vector<FoundInstrument> found = std::exchange(m_attached, {});
  const auto append = [&found](auto& search) {
    if (!search) return;
    auto instruments = search->Take();
    found.insert(found.end(), std::move_iterator(instruments.begin()), std::move_iterator(instruments.end()));
  };
  append(m_vxi11);
  append(m_mdns);
  std::erase_if(found, [this](const FoundInstrument& instrument) { return !m_told.Add(instrument.Name); });
  return found;
}

void InstrumentSearch::Stop() noexcept {
  m_mdns.reset();
  m_vxi11.reset();
  m_attached.clear();
}

} // namespace portico::discovery
