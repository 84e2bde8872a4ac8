#pragma once

#include "simulator/CommandTree.h"

#include <string_view>

namespace portico::simulator {

/// What makes one model of instrument different from another: its identity, its settings and its own commands.
class InstrumentModel {
public:
  virtual ~InstrumentModel() = default;

  /// The answer to `*IDN?`: maker, model, serial number and firmware version.
  virtual std::string_view Identification() const = 0;

  /// `*RST`: gives every setting its default and forgets what was measured.
  virtual void Reset() = 0;

  /// Adds the model's own commands.
  virtual void AddTo(CommandTree& tree) = 0;
};

} // namespace portico::simulator
