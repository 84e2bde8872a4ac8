#pragma once

#include "framework/objects/IPublisher.h"
#include "framework/shared/IReport.h"
#include "platform/IInstrumentDriver.h"
#include "support/doubles/InstructionFakes.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>

namespace portico::support {

/// Writes down every call, answers every read, and fails where it is told to.
class PipelineDriver final : public IInstrumentDriver {
public:
  /// The journal must outlive the driver.
  explicit PipelineDriver(Journal& journal) : m_journal(journal) {}

  /// Status of a call, by its line in the journal; 0 for all others.
  std::map<std::string, std::int32_t> Failures;
  /// Called with each line.
  std::function<void(const std::string&)> OnCall;
  std::string Answer = "answer";

  std::int32_t TVSCPI_init(const std::string& name, std::int32_t, std::int32_t, std::int32_t& session) override {
    const std::int32_t status = Call("init " + name);
    if (status == 0) session = 7;
    return status;
  }
  std::int32_t TVSCPI_close(std::int32_t) override { return Call("close"); }
  std::int32_t TVSCPI_WriteInstrData(std::int32_t, const std::string& text) override {
    EXPECT_TRUE(!text.empty() && text.back() == '\r') << text;
    return Call("write " + text.substr(0, text.size() - 1));
  }
  std::int32_t TVSCPI_ReadInstrData(std::int32_t, std::int32_t, char* buffer, std::int32_t& count) override {
    std::memcpy(buffer, Answer.c_str(), Answer.size() + 1);
    count = static_cast<std::int32_t>(Answer.size()) + 1;
    return Call("read");
  }
  std::int32_t TVSCPI_GetAttributeViInt32(std::int32_t, std::int32_t, std::int32_t attribute, std::int32_t&) override {
    return Call("get " + std::to_string(attribute));
  }
  std::int32_t TVSCPI_GetAttributeViString(std::int32_t, std::int32_t, std::int32_t attribute, std::int32_t,
                                           char* buffer) override {
    WriteText(buffer, "text");
    return Call("get " + std::to_string(attribute));
  }
  std::int32_t TVSCPI_SetAttributeViInt32(std::int32_t, std::int32_t, std::int32_t attribute,
                                          std::int32_t value) override {
    return Call("set " + std::to_string(attribute) + " " + std::to_string(value));
  }
  std::int32_t TVSCPI_SetAttributeViString(std::int32_t, std::int32_t, std::int32_t attribute,
                                           const std::string& text) override {
    return Call("set " + std::to_string(attribute) + " " + text);
  }
  std::int32_t TVSCPI_error_message(std::int32_t, std::int32_t status, char* buffer) override {
    WriteText(buffer, "status " + std::to_string(status) + "\n");
    return 0;
  }

private:
  /// The text and the zero byte behind it.
  static void WriteText(char* buffer, const std::string& text) { std::copy_n(text.c_str(), text.size() + 1, buffer); }

  std::int32_t Call(const std::string& line) {
    m_journal.push_back(line);
    if (OnCall) OnCall(line);
    const auto failure = Failures.find(line);
    return failure == Failures.end() ? 0 : failure->second;
  }

  Journal& m_journal;
};

/// Keeps every report, and notes it in the journal.
class PipelineSubscriber final : public ISubscriber {
public:
  struct Report {
    String Command;
    String Data;
    String ErrorMessage;
    std::int32_t ErrorCode;
    String SCPIInstruction;
    bool operator==(const Report&) const = default;
  };

  explicit PipelineSubscriber(Journal& journal) : m_journal(journal) {}
  StringView ClassName() const override { return u"PipelineSubscriber"; }
  void Update(const Ref<IObject>& Subject) override {
    const auto report = Cast<IReport>(Subject);
    Reports.push_back({report->GetCommand(), report->GetData(), report->GetErrorMessage(), report->GetErrorCode(),
                       report->GetSCPIInstruction()});
    m_journal.push_back("report " + ToUtf8(report->GetCommand()));
    if (OnReport) OnReport();
  }

  std::vector<Report> Reports;
  std::function<void()> OnReport;

private:
  Journal& m_journal;
};

inline void PrintTo(const PipelineSubscriber::Report& report, std::ostream* out) {
  *out << ToUtf8(report.Command) << ", data '" << ToUtf8(report.Data) << "', message '" << ToUtf8(report.ErrorMessage)
       << "', code " << report.ErrorCode << ", text '" << ToUtf8(report.SCPIInstruction) << "'";
}

} // namespace portico::support
