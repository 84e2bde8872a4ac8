#include "discovery/MdnsSearch.h"

#include "discovery/ListedInstrument.h"
#include "discovery/ServiceNames.h"

#include <mutex>
#include <utility>

namespace portico::discovery {

/// What the thread has found and nobody has taken yet.
class MdnsSearch::Finds final : public mdns::IServiceListener {
public:
  void Found(const mdns::Service& service) override {
    if (auto instrument = m_names.Add(service)) Put(std::move(*instrument));
  }
  void Settled() override {
    for (FoundInstrument& instrument : m_names.Settle()) Put(std::move(instrument));
  }
  std::vector<FoundInstrument> Take() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_waiting, {});
  }

private:
  void Put(FoundInstrument instrument) {
    const std::lock_guard lock(m_mutex);
    if (m_waiting.size() < MostListed) m_waiting.push_back(std::move(instrument));
  }

  ServiceNames m_names; // the thread's
  std::mutex m_mutex;
  std::vector<FoundInstrument> m_waiting;
};

MdnsSearch::MdnsSearch(Browse browse)
    : m_finds(std::make_shared<Finds>()),
      m_task([finds = m_finds, browse = std::move(browse)](const system::Cancellation& cancellation) {
        browse(ServiceNames::Types(), *finds, cancellation);
      }) {}

MdnsSearch::~MdnsSearch() = default;

std::vector<FoundInstrument> MdnsSearch::Take() { return m_finds->Take(); }

} // namespace portico::discovery
