#pragma once

#include <filesystem>
#include <string>

namespace portico::test {

/// The bytes of a file; none if there is no such file.
std::string ReadFile(const std::filesystem::path& path);
/// The file holds these bytes and no others.
void WriteFile(const std::filesystem::path& path, const std::string& bytes);

/// An empty folder that no other test has, also where test programs run side by side. It goes with all that is in it.
class TemporaryFolder {
public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  const std::filesystem::path& Path() const { return m_path; }
  /// What bears this name in it, whether it is there or not.
  std::string At(const std::string& name) const { return (m_path / name).string(); }
  std::string Read(const std::string& name) const { return ReadFile(m_path / name); }
  void Write(const std::string& name, const std::string& bytes) const { WriteFile(m_path / name, bytes); }

private:
  std::filesystem::path m_path;
};

} // namespace portico::test
