#pragma once

#include "scpi/ScpiError.h"
#include "simulator/language/CommandTree.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace portico::simulator {

/// What makes one model of instrument different from another: its identity, its settings and its own commands.
class InstrumentModel {
public:
  /// For settings that are saved.
  static constexpr std::size_t Places = 10;

  virtual ~InstrumentModel() = default;

  /// The answer to `*IDN?`: maker, model, serial number and firmware version.
  virtual std::string_view Identification() const = 0;

  /// `*RST`: gives every setting its default and forgets what was measured, but not what was saved.
  virtual void Reset() = 0;

  /// `*SAV`, `*RCL`: keeps the settings in a place, and takes them from one that has some.
  virtual void Save(std::size_t place) = 0;
  virtual bool HasSaved(std::size_t place) const = 0;
  virtual void Recall(std::size_t place) = 0;

  /// `*TRG`. Throws ScpiError if nothing waits for a trigger.
  virtual void Trigger() { throw scpi::ScpiError(scpi::ErrorCode::TriggerIgnored); }

  /// Adds the model's own commands.
  virtual void AddTo(CommandTree& tree) = 0;
};

/// A model whose settings are one record, which as it is made holds the defaults.
template <class SettingsRecord>
class ModelWithSettings : public InstrumentModel {
public:
  void Save(std::size_t place) final { m_saved[place] = m_settings; }
  bool HasSaved(std::size_t place) const final { return m_saved[place].has_value(); }
  void Recall(std::size_t place) final {
    Recalling();
    m_settings = *m_saved[place];
    Recalled();
  }

protected:
  using Settings = SettingsRecord;

  /// All settings are about to become others.
  virtual void Recalling() {}
  /// All settings may be others now.
  virtual void Recalled() = 0;

  Settings m_settings;

private:
  std::array<std::optional<Settings>, Places> m_saved;
};

} // namespace portico::simulator
