#pragma once

#include "framework/text/text.h"

#include <cstdint>

namespace portico {

/// What the text of a configuration item stands for.
enum class ItemType : std::uint8_t {
  Switch,      ///< "On" or "Off"
  Truth,       ///< "True" or "False"
  Interval,    ///< milliseconds as text; 1 to 65535 elapse
  Text,        ///< any text
  Command,     ///< what is sent to the instrument
  Termination, ///< "Auto", "CR", "LF", "CRLF" or "LFCR"
  Protocol,    ///< "SCPI" or "Other"
  Mode,        ///< "Off", "Step", or any other text, which means to run on
};

/// Where a table holds an item, for as long as the table stays in the state in which it was looked up.
struct ItemPlace {
  std::uint64_t State = 0; ///< 0: never looked up
  void* Item = nullptr;    ///< what the table has there, which it alone knows; null for an item that was not there
};

/// What an item is found by: its name. It remembers the place, so that the table is searched once and not each time.
struct ItemName {
  StringView Name;
  mutable ItemPlace Place = {};

  /// The name, for whoever takes the text of any item.
  constexpr operator StringView() const { return Name; } // NOLINT(google-explicit-constructor)
};

/// The key of an item: its name, and what its text stands for. Keys bear the names of their items.
template <ItemType Type>
struct ItemKey : ItemName {};

/// The key of any item, for tables.
struct AnyItemKey {
  template <ItemType T>
  constexpr AnyItemKey(const ItemKey<T>& Key) : Name(Key.Name), Type(T) {} // NOLINT(google-explicit-constructor)

  StringView Name;
  ItemType Type;
};

/// What items hold.
namespace ItemText {

inline constexpr StringView On = u"On";
inline constexpr StringView Off = u"Off";
inline constexpr StringView True = u"True";
inline constexpr StringView False = u"False";
inline constexpr StringView Step = u"Step";
inline constexpr StringView SCPI = u"SCPI";
inline constexpr StringView Other = u"Other";

} // namespace ItemText

namespace Item {

// They start afresh at each run.
inline constexpr ItemKey<ItemType::Truth> InstrumentOpened{u"InstrumentOpened"};
/// The instrument to open stands in `InstrumentName`: nobody is asked for it.
inline constexpr ItemKey<ItemType::Truth> OpenfromTree{u"OpenfromTree"};
inline constexpr ItemKey<ItemType::Text> InstrumentName{u"InstrumentName"};
inline constexpr ItemKey<ItemType::Text> LogFileName{u"LogFileName"};
inline constexpr ItemKey<ItemType::Switch> Logging{u"Logging"};
/// How `CRun` and `CInstructionRunner` take lines.
inline constexpr ItemKey<ItemType::Mode> RunningMode{u"RunningMode"};

// They do not exist before they are written first.
inline constexpr ItemKey<ItemType::Text> CurrentInstruction{u"CurrentInstruction"};
// Nobody reads the two names of files: they are kept for the contract.
inline constexpr ItemKey<ItemType::Text> CopyToFileName{u"CopyToFileName"};
inline constexpr ItemKey<ItemType::Text> PasteFromFileName{u"PasteFromFileName"};

// They outlive the program.
inline constexpr ItemKey<ItemType::Protocol> ProtocolName{u"ProtocolName"};
inline constexpr ItemKey<ItemType::Switch> SCPIProtocolOPCPacing{u"SCPIProtocolOPCPacing"};
inline constexpr ItemKey<ItemType::Switch> SCPIProtocolIntervalPacing{u"SCPIProtocolIntervalPacing"};
inline constexpr ItemKey<ItemType::Interval> SCPIProtocolPacingInterval{u"SCPIProtocolPacingInterval"};
inline constexpr ItemKey<ItemType::Switch> SCPIProtocolAutoReadAfterQuery{u"SCPIProtocolAutoReadAfterQuery"};
inline constexpr ItemKey<ItemType::Switch> SCPIProtocolAutoErrorChecking{u"SCPIProtocolAutoErrorChecking"};
inline constexpr ItemKey<ItemType::Command> SCPIProtocolErrorCheckingCommand{u"SCPIProtocolErrorCheckingCommand"};
inline constexpr ItemKey<ItemType::Termination> SCPIProtocolTerminationCharacter{u"SCPIProtocolTerminationCharacter"};
inline constexpr ItemKey<ItemType::Switch> OtherProtocolIntervalPacing{u"OtherProtocolIntervalPacing"};
inline constexpr ItemKey<ItemType::Interval> OtherProtocolPacingInterval{u"OtherProtocolPacingInterval"};
inline constexpr ItemKey<ItemType::Termination> OtherProtocolTerminationCharacter{u"OtherProtocolTerminationCharacter"};

// They take their values from the options of the protocol in force.
inline constexpr ItemKey<ItemType::Switch> AutoErrorCheckingMode{u"AutoErrorCheckingMode"};
inline constexpr ItemKey<ItemType::Switch> AutoReadAfterQueryMode{u"AutoReadAfterQueryMode"};
inline constexpr ItemKey<ItemType::Switch> OPCPacing{u"OPCPacing"};
inline constexpr ItemKey<ItemType::Switch> IntervalPacing{u"IntervalPacing"};
inline constexpr ItemKey<ItemType::Interval> PacingInterval{u"PacingInterval"};
inline constexpr ItemKey<ItemType::Command> ErrorCheckingCommand{u"ErrorCheckingCommand"};
/// It goes to the channel's attribute of the same name.
inline constexpr ItemKey<ItemType::Termination> TERMCHAR{u"TERMCHAR"};

} // namespace Item
} // namespace portico
