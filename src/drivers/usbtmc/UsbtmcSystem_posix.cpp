#include "drivers/usbtmc/UsbtmcSystem.h"

#include "system/FileDescriptor.h"
#include "system/FirstLine.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <fcntl.h>
#include <filesystem>
#include <linux/usb/tmc.h>
#include <map>
#include <optional>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace portico::drivers {
namespace {

namespace fs = std::filesystem;

class UsbtmcFile final : public IUsbtmcFile {
public:
  explicit UsbtmcFile(system::FileDescriptor file) : m_file(std::move(file)) {}

  long Read(char* buffer, std::size_t size) override {
    return Repeat([&] { return ::read(m_file.Get(), buffer, size); });
  }
  long Write(std::string_view bytes) override {
    return Repeat([&] { return ::write(m_file.Get(), bytes.data(), bytes.size()); });
  }
  int Request(UsbtmcRequest request, std::uint32_t& value) override {
    auto byte = static_cast<unsigned char>(value);
    const long answer = Repeat([&]() -> long {
      switch (request) {
      case UsbtmcRequest::SetTimeout:
        return ::ioctl(m_file.Get(), USBTMC_IOCTL_SET_TIMEOUT, &value);
      case UsbtmcRequest::AutoAbort:
        return ::ioctl(m_file.Get(), USBTMC_IOCTL_AUTO_ABORT, &byte);
      case UsbtmcRequest::MessageAttributes:
        return ::ioctl(m_file.Get(), USBTMC_IOCTL_MSG_IN_ATTR, &byte);
      case UsbtmcRequest::Capabilities:
        return ::ioctl(m_file.Get(), USBTMC488_IOCTL_GET_CAPS, &byte);
      case UsbtmcRequest::Clear:
        return ::ioctl(m_file.Get(), USBTMC_IOCTL_CLEAR);
      case UsbtmcRequest::GoToLocal:
        return ::ioctl(m_file.Get(), USBTMC488_IOCTL_GOTO_LOCAL);
      }
      return -EINVAL;
    });
    if (answer < 0) return static_cast<int>(-answer);
    if (request != UsbtmcRequest::SetTimeout) value = byte;
    return 0;
  }
  bool Gone() const override {
    pollfd entry = {m_file.Get(), 0, 0};
    return ::poll(&entry, 1, 0) > 0 && (entry.revents & POLLHUP) != 0;
  }

private:
  /// A signal does not end a call. Answers what the call does, or the negative of the system's error number.
  template <typename Call>
  static long Repeat(Call call) {
    for (;;) {
      const long answer = call();
      if (answer >= 0) return answer;
      if (errno != EINTR) return -errno;
    }
  }

  system::FileDescriptor m_file;
};

template <typename Number>
std::optional<Number> NumberIn(const fs::path& file, int base) {
  const std::string text = system::FirstLine(file);
  Number number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  if (text.empty() || error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

/// N of "usbtmcN".
std::optional<unsigned> FileNumber(const std::string& name) {
  constexpr std::string_view prefix = "usbtmc";
  if (name.compare(0, prefix.size(), prefix) != 0) return std::nullopt;
  unsigned number = 0;
  const auto [end, error] = std::from_chars(name.data() + prefix.size(), name.data() + name.size(), number);
  if (error != std::errc() || end != name.data() + name.size()) return std::nullopt;
  return number;
}

/// What sysfs tells of an interface; its parent folder is the device's.
std::optional<UsbtmcDevice> Describe(const fs::path& interfaceLink, std::string path) {
  std::error_code error;
  const fs::path interface = fs::canonical(interfaceLink, error);
  if (error) return std::nullopt;
  const fs::path device = interface.parent_path();
  const auto vendor = NumberIn<std::uint16_t>(device / "idVendor", 16);
  const auto product = NumberIn<std::uint16_t>(device / "idProduct", 16);
  if (!vendor || !product) return std::nullopt;
  return UsbtmcDevice{std::move(path),
                      *vendor,
                      *product,
                      system::FirstLine(device / "serial"),
                      NumberIn<std::uint8_t>(interface / "bInterfaceNumber", 16).value_or(0),
                      system::FirstLine(device / "manufacturer"),
                      system::FirstLine(device / "product")};
}

} // namespace

UsbtmcSystem::UsbtmcSystem(std::string classFolder, std::string deviceFolder)
    : m_classFolder(std::move(classFolder)), m_deviceFolder(std::move(deviceFolder)) {}

std::vector<UsbtmcDevice> UsbtmcSystem::Devices() {
  std::map<unsigned, UsbtmcDevice> devices;
  std::error_code error;
  for (fs::directory_iterator entry(m_classFolder, error), end; !error && entry != end; entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    const auto number = FileNumber(name);
    if (!number) continue;
    auto device = Describe(entry->path() / "device", m_deviceFolder + "/" + name);
    if (device) devices.emplace(*number, std::move(*device));
  }
  std::vector<UsbtmcDevice> sorted;
  sorted.reserve(devices.size());
  for (auto& [number, device] : devices) sorted.push_back(std::move(device));
  return sorted;
}

UsbtmcOpening UsbtmcSystem::Open(const std::string& path) {
  system::FileDescriptor file(::open(path.c_str(), O_RDWR | O_CLOEXEC));
  if (!file.IsOpen()) return {errno};
  if (::flock(file.Get(), LOCK_EX | LOCK_NB) != 0) return {errno};
  return {0, std::make_unique<UsbtmcFile>(std::move(file))};
}

} // namespace portico::drivers
