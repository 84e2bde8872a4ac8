#pragma once

#include "platform/IInstrumentSearch.h"

#include <filesystem>
#include <vector>

namespace portico::discovery {

/// Where the operating system shows its devices.
struct DeviceFolders {
  std::filesystem::path Devices = "/dev";
  std::filesystem::path System = "/sys";
};

/// What is attached to this machine: USB instruments, then serial ports, at which an instrument may be. No device is
/// opened.
std::vector<FoundInstrument> AttachedInstruments(const DeviceFolders& folders = {});

/// The names alone, of those that no name of `known` opens.
std::vector<String> AttachedNames(const std::vector<String>& known, const DeviceFolders& folders = {});

} // namespace portico::discovery
