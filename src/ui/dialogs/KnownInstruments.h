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
  /// Tells the names of what is attached at the moment and not known already by the names that it is given.
  using Attached = std::function<std::vector<String>(const std::vector<String>& known)>;

  /// `attached` is asked each time that a branch is selected.
  explicit KnownInstruments(Attached attached = {}) : m_attached(std::move(attached)) {}

  std::unique_ptr<IInstrumentTree> OpenTree(std::int32_t Kind) override;

  /// Puts a name, without blanks around it, in front of those opened before. At most ten are kept; names that differ in
  /// case only are the same.
  static void Remember(const String& name);

private:
  Attached m_attached;
};

} // namespace portico
