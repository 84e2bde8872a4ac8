#pragma once

#include "framework/text/text.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace portico {

/// Walks the items of a branch.
class IInstrumentIterator {
public:
  virtual ~IInstrumentIterator() = default;
  virtual void First() = 0;
  virtual bool IsDone() const = 0;
  virtual void Next() = 0;
  /// A kind, the mark "->" and a name, such as "Visa->TCPIP::192.0.2.7::5025::SOCKET".
  virtual String ItemName() const = 0;
};

class IInstrumentTree {
public:
  virtual ~IInstrumentTree() = default;
  virtual std::unique_ptr<IInstrumentIterator> SelectBranch(std::int32_t Branch) = 0;
};

/// The instruments that are known on this machine.
class IInstrumentList {
public:
  virtual ~IInstrumentList() = default;
  virtual std::unique_ptr<IInstrumentTree> OpenTree(std::int32_t Kind) = 0;
};
extern std::shared_ptr<IInstrumentList> gInstrumentList;

inline constexpr std::int32_t InstrumentTreeKind = 7;
inline constexpr std::int32_t InstrumentBranch = 0;

/// The names of the items that can be opened: those of the kinds "Visa" and "VInstr", in any case.
std::vector<String> NamesThatOpen(IInstrumentList& list);

} // namespace portico
