#pragma once

#include "platform/IInstrumentDriver.h"

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace portico::test {

/// A driver that records its calls, one text for each, and answers as the test laid down.
class RecordingDriver final : public IInstrumentDriver {
public:
  std::vector<std::string> Calls;
  /// Runs in each call, behind its recording.
  std::function<void(const std::string& call)> OnCall = [](const std::string&) {};
  /// By the text that was written; a text that is not listed is not answered.
  std::map<std::string, std::string> Answers = {{"*OPC?", "1"}, {":SYST:ERR?", "0,\"No error\""}};
  /// Statuses by call, such as "write *CLS".
  std::map<std::string, std::int32_t> Failures;

  static constexpr std::int32_t NothingToRead = -7;

  std::int32_t TVSCPI_init(const std::string& name, std::int32_t, std::int32_t, std::int32_t& session) override {
    const std::int32_t status = Record("init " + name);
    if (status == 0) session = 1;
    return status;
  }
  std::int32_t TVSCPI_close(std::int32_t) override { return Record("close"); }
  std::int32_t TVSCPI_WriteInstrData(std::int32_t, const std::string& text) override {
    const std::string written = text.substr(0, text.find('\r'));
    const std::int32_t status = Record("write " + written);
    const auto answer = Answers.find(written);
    if (status == 0 && answer != Answers.end()) m_unread.push_back(answer->second);
    return status;
  }
  std::int32_t TVSCPI_ReadInstrData(std::int32_t, std::int32_t, char* buffer, std::int32_t& count) override {
    count = 0;
    if (const std::int32_t status = Record("read"); status != 0) return status;
    if (m_unread.empty()) return NothingToRead;
    std::copy(m_unread.front().begin(), m_unread.front().end(), buffer);
    count = static_cast<std::int32_t>(m_unread.front().size()) + 1;
    m_unread.pop_front();
    return 0;
  }
  std::int32_t TVSCPI_GetAttributeViInt32(std::int32_t, std::int32_t, std::int32_t attribute, std::int32_t&) override {
    return Record("get " + std::to_string(attribute));
  }
  std::int32_t TVSCPI_GetAttributeViString(std::int32_t, std::int32_t, std::int32_t attribute, std::int32_t,
                                           char*) override {
    return Record("get " + std::to_string(attribute));
  }
  std::int32_t TVSCPI_SetAttributeViInt32(std::int32_t, std::int32_t, std::int32_t attribute,
                                          std::int32_t value) override {
    return Record("set " + std::to_string(attribute) + " to " + std::to_string(value));
  }
  std::int32_t TVSCPI_SetAttributeViString(std::int32_t, std::int32_t, std::int32_t attribute,
                                           const std::string& text) override {
    return Record("set " + std::to_string(attribute) + " to " + text);
  }
  std::int32_t TVSCPI_error_message(std::int32_t, std::int32_t status, char* buffer) override {
    const std::string text = "failure " + std::to_string(status) + '\n';
    *std::copy(text.begin(), text.end(), buffer) = '\0';
    return 0;
  }

private:
  std::int32_t Record(const std::string& call) {
    Calls.push_back(call);
    OnCall(call);
    const auto failure = Failures.find(call);
    return failure == Failures.end() ? 0 : failure->second;
  }

  std::deque<std::string> m_unread;
};

} // namespace portico::test
