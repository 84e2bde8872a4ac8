#pragma once

#include "framework/shared/CInstContainer.h"
#include "framework/shared/IResponse.h"
#include "platform/IExtendedDriver.h"

#include <optional>

namespace portico {

/// What the program asks of the instrument on the user's behalf. What is said to the instrument goes by instructions,
/// so that it takes the road of a typed line and shows up in the same reports. Needs the factory with everything that
/// an instruction needs.
namespace InstrumentAccess {

/// Hands an instruction to the instruction processor. One that nobody takes raises `CannotCarryOut`.
void Send(const Ref<CInstContainer>& Instruction);

/// Opens an instrument and notes its name, also if it does not open: that is told in the reports. The termination
/// character that the options have; none if the instrument is not open.
std::optional<String> Open(const String& Name);

/// What an open is followed by.
void SetTermination(const String& Termination);

/// Closes the instrument, whether or not one is open, and notes that none is.
void Close();

/// Asks one query and reads its answer, as the user's own Read would, but for an answer of any size, which goes to the
/// sink piece by piece. Both stand in the reports; of an answer that is too long for a report, nothing does. Where
/// answers of any size cannot be read, nothing is sent. How the read ended, or why it cannot be.
Ref<IResponse> Fetch(const String& Query, const AnswerSink& Sink);

// These are no lines of a conversation: they go to the channel itself, and no report tells of them.

/// The time-out of the driver's calls from the next one on, `ShortestTimeout` to `LongestTimeout`.
Ref<IResponse> SetTimeout(std::int32_t Milliseconds);
Ref<IResponse> ClearDevice();
Ref<IResponse> GoToLocal();

} // namespace InstrumentAccess
} // namespace portico
