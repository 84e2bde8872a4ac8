#include "application/HostEnvironment.h"

#include "application/EnvironmentText.h"
#include "application/OwnFiles.h"
#include "framework/shared/Application.h"

#include <array>
#include <fstream>
#include <system_error>
#include <thread>
#include <utility>

#include <unistd.h>

namespace portico {
namespace {

std::filesystem::path ProgramPath() {
  std::error_code fault;
  return std::filesystem::read_symlink("/proc/self/exe", fault);
}

String FromPath(const std::filesystem::path& path) { return FromUtf8(path.string()).Text; }

} // namespace

HostEnvironment::HostEnvironment() : HostEnvironment(ProgramPath()) {}
HostEnvironment::HostEnvironment(std::filesystem::path program) : m_program(std::move(program)) {}

std::tm HostEnvironment::LocalTime() const {
  const std::time_t now = std::time(nullptr);
  if (now != m_second) {
    localtime_r(&now, &m_local);
    m_second = now;
  }
  return m_local;
}

String HostEnvironment::ComputerName() const {
  std::array<char, 256> name{};
  if (gethostname(name.data(), name.size() - 1) != 0) return {};
  return FromUtf8(name.data()).Text;
}

String HostEnvironment::ProgramFileName() const { return FromPath(m_program.filename()); }

String HostEnvironment::ProgramDirectory() const {
  return FromPath(
      OwnFilesDirectory({m_program.parent_path(),
                         {EnvironmentText("XDG_STATE_HOME"), EnvironmentText("HOME")},
                         [](const std::filesystem::path& path) { return access(path.c_str(), W_OK) == 0; }}));
}

String HostEnvironment::ProgramVersion() const { return ApplicationVersion(); }

String HostEnvironment::SystemMessage(std::uint32_t number) const {
  return FromUtf8(std::system_category().message(static_cast<int>(number))).Text;
}

char16_t HostEnvironment::PathSeparator() const { return u'/'; }

bool HostEnvironment::AppendToFile(const String& path, const String& text) {
  std::ofstream file(ToUtf8(path), std::ios::app | std::ios::binary);
  if (!file) return false;
  file << ToUtf8(text);
  return true;
}

std::chrono::milliseconds HostEnvironment::Ticks() const {
  return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now().time_since_epoch());
}

void HostEnvironment::Sleep(std::chrono::milliseconds duration) { std::this_thread::sleep_for(duration); }

} // namespace portico
