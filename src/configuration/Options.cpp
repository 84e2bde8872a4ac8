#include "configuration/Options.h"

#include <array>

namespace portico {
namespace {

constexpr std::array Persisted = {
    PersistedOption{Item::ProtocolName, ItemText::SCPI},
    PersistedOption{Item::SCPIProtocolOPCPacing, ItemText::On},
    PersistedOption{Item::SCPIProtocolIntervalPacing, ItemText::Off},
    PersistedOption{Item::SCPIProtocolPacingInterval, u"1000"},
    PersistedOption{Item::SCPIProtocolAutoReadAfterQuery, ItemText::On},
    PersistedOption{Item::SCPIProtocolAutoErrorChecking, ItemText::On},
    PersistedOption{Item::SCPIProtocolErrorCheckingCommand, u":SYST:ERR?"},
    PersistedOption{Item::SCPIProtocolTerminationCharacter, u"Auto"},
    PersistedOption{Item::OtherProtocolIntervalPacing, ItemText::Off},
    PersistedOption{Item::OtherProtocolPacingInterval, u"1000"},
    PersistedOption{Item::OtherProtocolTerminationCharacter, u"LF"},
};

constexpr std::array Working = {
    WorkingItem{Item::AutoErrorCheckingMode, Item::SCPIProtocolAutoErrorChecking, {}, ItemText::Off},
    WorkingItem{Item::AutoReadAfterQueryMode, Item::SCPIProtocolAutoReadAfterQuery, {}, ItemText::Off},
    WorkingItem{Item::OPCPacing, Item::SCPIProtocolOPCPacing, {}, ItemText::Off},
    WorkingItem{Item::IntervalPacing, Item::SCPIProtocolIntervalPacing, Item::OtherProtocolIntervalPacing, {}},
    WorkingItem{Item::PacingInterval, Item::SCPIProtocolPacingInterval, Item::OtherProtocolPacingInterval, {}},
    WorkingItem{Item::ErrorCheckingCommand, Item::SCPIProtocolErrorCheckingCommand, {}, {}},
    WorkingItem{Item::TERMCHAR, Item::SCPIProtocolTerminationCharacter, Item::OtherProtocolTerminationCharacter, {}},
};

} // namespace

std::span<const PersistedOption> PersistedOptions() { return Persisted; }

std::span<const WorkingItem> WorkingItems() { return Working; }

} // namespace portico
