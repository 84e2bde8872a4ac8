#include "configuration/Options.h"

#include <array>

namespace portico {
namespace {

constexpr std::array Persisted = {
    PersistedOption{u"ProtocolName", u"SCPI", OptionKind::Protocol},
    PersistedOption{u"SCPIProtocolOPCPacing", u"On", OptionKind::Switch},
    PersistedOption{u"SCPIProtocolIntervalPacing", u"Off", OptionKind::Switch},
    PersistedOption{u"SCPIProtocolPacingInterval", u"1000", OptionKind::Interval},
    PersistedOption{u"SCPIProtocolAutoReadAfterQuery", u"On", OptionKind::Switch},
    PersistedOption{u"SCPIProtocolAutoErrorChecking", u"On", OptionKind::Switch},
    PersistedOption{u"SCPIProtocolErrorCheckingCommand", u":SYST:ERR?", OptionKind::Command},
    PersistedOption{u"SCPIProtocolTerminationCharacter", u"Auto", OptionKind::Termination},
    PersistedOption{u"OtherProtocolIntervalPacing", u"Off", OptionKind::Switch},
    PersistedOption{u"OtherProtocolPacingInterval", u"1000", OptionKind::Interval},
    PersistedOption{u"OtherProtocolTerminationCharacter", u"LF", OptionKind::Termination},
};

constexpr std::array Working = {
    WorkingItem{u"AutoErrorCheckingMode", u"SCPIProtocolAutoErrorChecking", u"", u"Off"},
    WorkingItem{u"AutoReadAfterQueryMode", u"SCPIProtocolAutoReadAfterQuery", u"", u"Off"},
    WorkingItem{u"OPCPacing", u"SCPIProtocolOPCPacing", u"", u"Off"},
    WorkingItem{u"IntervalPacing", u"SCPIProtocolIntervalPacing", u"OtherProtocolIntervalPacing", u""},
    WorkingItem{u"PacingInterval", u"SCPIProtocolPacingInterval", u"OtherProtocolPacingInterval", u""},
    WorkingItem{u"ErrorCheckingCommand", u"SCPIProtocolErrorCheckingCommand", u"", u""},
    WorkingItem{u"TERMCHAR", u"SCPIProtocolTerminationCharacter", u"OtherProtocolTerminationCharacter", u""},
};

} // namespace

std::span<const PersistedOption> PersistedOptions() { return Persisted; }

std::span<const WorkingItem> WorkingItems() { return Working; }

} // namespace portico
