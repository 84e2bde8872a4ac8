#pragma once

#include "platform/IInstrumentList.h"

#include <functional>
#include <utility>
#include <vector>

namespace portico {

/// The instruments that this program can offer: those opened before, the last one first, as the settings store keeps
/// them, then those that it simulates, and then what may be attached to this machine. Every tree and branch but the
/// instruments' own is empty.
class KnownInstruments final : public IInstrumentList {
public:
  /// `attached` tells the names of what is attached at the moment, each time that a branch is selected.
  explicit KnownInstruments(std::function<std::vector<String>()> attached = {}) : m_attached(std::move(attached)) {}

  std::unique_ptr<IInstrumentTree> OpenTree(std::int32_t Kind) override;

  /// Puts a name, without blanks around it, in front of those opened before. At most ten are kept; names that differ in
  /// case only are the same.
  static void Remember(const String& name);

private:
  std::function<std::vector<String>()> m_attached;
};

} // namespace portico
