#pragma once

#include "platform/IInstrumentSearch.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace portico::memory {

/// A search that finds what it is told to.
class InstrumentSearch final : public IInstrumentSearch {
public:
  void Start(const std::vector<String>& known) override;
  std::vector<FoundInstrument> Take() override;
  void Stop() noexcept override;

  /// An instrument answers.
  void Find(String name, String description = {}) { m_found.push_back({std::move(name), std::move(description)}); }
  /// From now on whoever starts or takes gets the error.
  void Fail(std::int32_t error) { m_error = error; }
  bool IsRunning() const { return m_isRunning; }
  /// What it need not look for.
  const std::vector<String>& Known() const { return m_known; }
  /// How often it was asked for what has come.
  int TimesTaken() const { return m_timesTaken; }

private:
  void RaiseIfTold() const;

  std::vector<String> m_known;
  std::vector<FoundInstrument> m_found;
  std::int32_t m_error = 0;
  bool m_isRunning = false;
  int m_timesTaken = 0;
};

} // namespace portico::memory
