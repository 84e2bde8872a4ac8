#pragma once

#include "platform/ICommandFiles.h"
#include "platform/KeyCodes.h"
#include "ui/main/MainWindowFixture.h"

#include <map>

namespace portico::test {

/// Files that live as long as a test.
class CommandFilesDouble final : public ICommandFiles {
public:
  bool HaveListsChanged() override { return HasChanged; }
  std::vector<File> Lists() override {
    HasChanged = false;
    return Files;
  }
  File Told(const String& instrument) override {
    const auto kept = Kept.find(instrument);
    return {instrument, kept == Kept.end() ? std::string() : kept->second, {}};
  }
  std::optional<String> KeepTold(const String& instrument, std::string_view bytes) override {
    if (KeepFault) return KeepFault;
    Kept[instrument] = bytes;
    return {};
  }

  bool HasChanged = true;
  std::vector<File> Files;
  std::map<String, std::string> Kept;
  std::optional<String> KeepFault;
};

/// The window on an open instrument, with command files in memory.
class CompletionFixture : public MainWindowFixture {
protected:
  CompletionFixture() {
    HasSpies = false;
    gCommandFiles = Files;
    Driver->OnWrite = [this](const std::string& text) {
      m_written = text;
      return 0;
    };
    Driver->OnRead = [this] {
      auto& answers = Answers[m_written];
      if (answers.empty()) {
        if (m_written == "*OPC?") return DriverDouble::Reading{0, "1\n"};
        if (m_written == ":SYST:ERR?") return DriverDouble::Reading{0, "0,\"No error\"\n"};
        return DriverDouble::Reading{-1073807339, "", 0};
      }
      const std::string answer = answers.front();
      answers.erase(answers.begin());
      return DriverDouble::Reading{0, answer + "\n"};
    };
  }
  ~CompletionFixture() override { gCommandFiles.reset(); }

  void Type(StringView text) {
    Future().Text({});
    ASSERT_TRUE(Future().Type(text));
  }
  void List(StringView name, std::string bytes) { Files->Files.push_back({String(name), std::move(bytes), {}}); }
  std::string Text() { return ToUtf8(Future().Text()); }
  std::vector<std::string> Offered() {
    std::vector<std::string> offered;
    for (const String& offer : Future().Offers()) offered.push_back(ToUtf8(offer));
    return offered;
  }
  std::vector<std::string> Complete(StringView text) {
    Type(text);
    Click(u"mnuComplete");
    return Offered();
  }
  void Press(std::int32_t code) { ASSERT_TRUE(MemoryForm().PressKey(code)); }
  std::size_t Boxes() { return Box->Calls().size(); }
  std::string LastBox() { return ToUtf8(Box->Calls().back().Prompt); }

  /// What is answered to each query, in turn.
  std::map<std::string, std::vector<std::string>> Answers;
  std::shared_ptr<CommandFilesDouble> Files = std::make_shared<CommandFilesDouble>();

private:
  std::string m_written;
};

} // namespace portico::test
