#include "document/log/LogBench.h"

namespace portico::test {
namespace {

/// A disk that writes down what it is asked for.
class NotingDisk final : public ILogDisk {
public:
  explicit NotingDisk(std::shared_ptr<ILogDisk> disk) : m_disk(std::move(disk)) {}

  bool Exists(const std::string& path) const override {
    Steps.emplace_back("exists");
    return m_disk->Exists(path);
  }
  std::unique_ptr<ILogFile> Open(const std::string& path, Access access) override {
    Steps.emplace_back("open");
    auto file = m_disk->Open(path, access);
    if (!file) return {};
    return std::make_unique<NotingFile>(std::move(file), Steps);
  }
  void Remove(const std::string& path) override { m_disk->Remove(path); }
  std::unique_ptr<ILogFile> Create(const std::string& path, const std::function<void(const Sink&)>& write) override {
    return m_disk->Create(path, write);
  }
  std::unique_ptr<ILogFile> Replace(const std::string& path, const std::function<void(const Sink&)>& write) override {
    return m_disk->Replace(path, write);
  }

  mutable std::vector<std::string> Steps;

private:
  class NotingFile final : public ILogFile {
  public:
    NotingFile(std::unique_ptr<ILogFile> file, std::vector<std::string>& steps)
        : m_file(std::move(file)), m_steps(steps) {}
    LogFileIdentity Identity() const override {
      m_steps.emplace_back("look");
      return m_file->Identity();
    }
    LogFileIdentity WhenOpened() const override { return m_file->WhenOpened(); }
    std::size_t Read(std::uint64_t position, char* buffer, std::size_t size) const override {
      m_steps.emplace_back("read");
      return m_file->Read(position, buffer, size);
    }
    void Write(std::uint64_t position, std::string_view bytes) override {
      m_steps.emplace_back("write");
      m_file->Write(position, bytes);
    }
    void Truncate(std::uint64_t size) override {
      m_steps.emplace_back("truncate");
      m_file->Truncate(size);
    }
    void Close() override {
      m_steps.emplace_back("close");
      m_file->Close();
    }

  private:
    std::unique_ptr<ILogFile> m_file;
    std::vector<std::string>& m_steps;
  };

  std::shared_ptr<ILogDisk> m_disk;
};

using LogStepsTest = StoreTest;

TEST_F(LogStepsTest, AnEntityTakesOneOpeningOneReadOneWriteAndNoFurtherLook) {
  const auto noting = std::make_shared<NotingDisk>(Disk);
  const auto store = New<CXMLDataStore>(noting);
  store->Initialize(u"conversation.xml", false);
  store->OpenSession();
  Append(store, u"1");
  noting->Steps.clear();
  Append(store, u"2");
  EXPECT_EQ(noting->Steps, (std::vector<std::string>{"open", "read", "write", "close"}));
}

} // namespace
} // namespace portico::test
