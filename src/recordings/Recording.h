#pragma once

#include "simulator/connection/DeviceRack.h"
#include "simulator/replay/ReplayedInstrument.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace portico::recordings {

/// The instrument of a log.
struct Recording {
  /// A null pointer if the log cannot be replayed.
  std::unique_ptr<simulator::ReplayedInstrument> Instrument = {};
  /// What is wrong with the log, as a clause; empty if nothing is. Of a log whose end is missing there is an instrument
  /// all the same.
  std::string Fault = {};
};

struct RecordingOptions {
  std::optional<std::size_t> Session = {}; ///< the one that is wanted, from 1; without it, all are, as one conversation
  simulator::ReplayedInstrument::Order Order = simulator::ReplayedInstrument::Order::Free;
  std::uint64_t Seed = 1; ///< of the instrument's faults
};

/// Reads the log at the path, in UTF-8 or in what else the file system has.
Recording ReadRecording(const std::string& path, const RecordingOptions& options);

/// For the simulated instruments of a program: the whole log, with its order free. The path is in the instruments' code
/// page, as names of instruments are, and that of a file.
simulator::ReplayMaker Recordings();

} // namespace portico::recordings
