#include "discovery/AttachedInstruments.h"

#include "discovery/ListedInstrument.h"
#include "discovery/ToldInstruments.h"
#include "drivers/usbtmc/UsbtmcList.h"
#include "drivers/usbtmc/UsbtmcSystem.h"
#include "system/FirstLine.h"

#include <algorithm>
#include <cctype>
#include <set>
#include <string>
#include <string_view>
#include <tuple>

namespace portico::discovery {
namespace {

namespace fs = std::filesystem;

using system::FirstLine;

/// What stands in a folder under names that begin so, in the order of the numbers at their ends.
std::vector<fs::path> Entries(const fs::path& folder, std::string_view beginning) {
  std::vector<fs::path> entries;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    if (entry->path().filename().string().starts_with(beginning)) entries.push_back(entry->path());
  }
  std::sort(entries.begin(), entries.end(), [](const fs::path& left, const fs::path& right) {
    return std::pair(left.native().size(), left.native()) < std::pair(right.native().size(), right.native());
  });
  return entries;
}

/// Those that end with a number.
std::vector<fs::path> Numbered(const fs::path& folder, std::string_view beginning) {
  std::vector<fs::path> entries = Entries(folder, beginning);
  std::erase_if(entries, [&](const fs::path& path) {
    const std::string number = path.filename().string().substr(beginning.size());
    return number.empty() ||
           !std::all_of(number.begin(), number.end(), [](unsigned char c) { return std::isdigit(c); });
  });
  return entries;
}

/// The USB device to which a device belongs that is shown at `link`; empty if it belongs to none.
fs::path UsbDevice(const fs::path& link) {
  std::error_code error;
  fs::path place = fs::canonical(link, error);
  constexpr int levels = 3; // port, interface, device
  for (int i = 0; i < levels && !error && place.has_relative_path(); ++i, place = place.parent_path()) {
    if (fs::exists(place / "idVendor", error)) return place;
  }
  return {};
}

std::vector<std::string> UsbFacts(const fs::path& device) {
  if (device.empty()) return {};
  return {FirstLine(device / "manufacturer"), FirstLine(device / "product"), FirstLine(device / "serial")};
}

/// One that the machine really has: the others are placeholders of the driver, without a chip behind them.
bool IsReal(const fs::path& port, const fs::path& system) {
  const std::string type = FirstLine(system / "class" / "tty" / port.filename() / "type");
  return !type.empty() && type != "0";
}

class Collector {
public:
  explicit Collector(const DeviceFolders& folders) : m_folders(folders) {}

  void AddUsb() {
    drivers::UsbtmcSystem usb(m_folders.System / "class" / "usbmisc", m_folders.Devices);
    for (const drivers::UsbtmcDevice& device : usb.Devices()) {
      Add(InstrumentName(device), {device.Maker, device.Model, device.Serial});
    }
  }

  void AddSerial() {
    for (const fs::path& link : Entries(m_folders.Devices / "serial" / "by-id", "")) AddPort(link);
    for (const char* kind : {"ttyUSB", "ttyACM"}) {
      for (const fs::path& port : Numbered(m_folders.Devices, kind)) AddPort(port);
    }
    for (const fs::path& port : Numbered(m_folders.Devices, "ttyS")) {
      if (IsReal(port, m_folders.System)) AddPort(port);
    }
  }

  std::vector<FoundInstrument> Instruments;

private:
  void Add(const std::string& name, const std::vector<std::string>& facts) {
    if (auto instrument = ListedInstrument(name, facts)) Instruments.push_back(std::move(*instrument));
  }

  /// Under the first of its names.
  void AddPort(const fs::path& path) {
    std::error_code error;
    const fs::path port = fs::canonical(path, error);
    if (error || !m_ports.insert(port).second) return;
    Add("ASRL" + path.string() + "::INSTR",
        UsbFacts(UsbDevice(m_folders.System / "class" / "tty" / port.filename() / "device")));
  }

  const DeviceFolders& m_folders;
  std::set<fs::path> m_ports;
};

} // namespace

std::vector<FoundInstrument> AttachedInstruments(const DeviceFolders& folders) {
  Collector collector(folders);
  collector.AddUsb();
  collector.AddSerial();
  return std::move(collector.Instruments);
}

std::vector<String> AttachedNames(const std::vector<String>& known, const DeviceFolders& folders) {
  ToldInstruments told(known);
  std::vector<String> names;
  for (FoundInstrument& instrument : AttachedInstruments(folders)) {
    if (told.Add(instrument.Name)) names.push_back(std::move(instrument.Name));
  }
  return names;
}

} // namespace portico::discovery
