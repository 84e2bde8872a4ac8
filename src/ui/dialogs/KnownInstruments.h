#pragma once

#include "platform/IInstrumentList.h"

namespace portico {

/// The instruments that this program can offer: those opened before, the last one first, as the settings store keeps
/// them, and then those that it simulates. Every tree and branch but the instruments' own is empty.
class KnownInstruments final : public IInstrumentList {
public:
  std::unique_ptr<IInstrumentTree> OpenTree(std::int32_t Kind) override;

  /// Puts a name, without blanks around it, in front of those opened before. At most ten are kept; names that differ in
  /// case only are the same.
  static void Remember(const String& name);
};

} // namespace portico
