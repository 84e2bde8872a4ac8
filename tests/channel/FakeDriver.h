#pragma once

#include "platform/IInstrumentDriver.h"

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace portico::test {

/// An instrument driver that answers as it is told and remembers its calls, as "function(session,...)". Texts and
/// buffers are taken as they stand: a zero byte is only written where the test gives one.
class FakeDriver final : public IInstrumentDriver {
public:
  std::vector<std::string> Calls;

  /// Status by function name, without the prefix; 0 for the others.
  std::map<std::string, std::int32_t> Status;
  /// Handle that `init` writes; 0 for none.
  std::int32_t Handle = 7;
  /// What a read puts into the buffer, and its count if that is not the size of it.
  std::string Answer;
  std::optional<std::int32_t> Count;
  /// What the attribute functions deliver.
  std::int32_t Number = 0;
  std::string Text;
  std::string Message = "It broke.\n" + std::string(1, '\0');

  /// The last buffer as a function found it.
  std::string Found;
  std::function<void()> OnRead;

  std::int32_t TVSCPI_init(const std::string& name, std::int32_t idQuery, std::int32_t reset,
                           std::int32_t& session) override {
    if (Handle != 0) session = Handle;
    return Note("init", "(" + name + "," + std::to_string(idQuery) + "," + std::to_string(reset) + ")");
  }
  std::int32_t TVSCPI_close(std::int32_t session) override { return Note("close", Arguments({session})); }
  std::int32_t TVSCPI_WriteInstrData(std::int32_t session, const std::string& text) override {
    return Note("WriteInstrData", Arguments({session}, text));
  }
  std::int32_t TVSCPI_ReadInstrData(std::int32_t session, std::int32_t size, char* buffer,
                                    std::int32_t& count) override {
    Fill(buffer, static_cast<std::size_t>(size), Answer);
    count = Count.value_or(static_cast<std::int32_t>(Answer.size()));
    if (OnRead) OnRead();
    return Note("ReadInstrData", Arguments({session, size}));
  }
  std::int32_t TVSCPI_GetAttributeViInt32(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                          std::int32_t& value) override {
    value = Number;
    return Note("GetAttributeViInt32", Arguments({session, zero, attribute}));
  }
  std::int32_t TVSCPI_GetAttributeViString(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                           std::int32_t size, char* buffer) override {
    Fill(buffer, static_cast<std::size_t>(size), Text);
    return Note("GetAttributeViString", Arguments({session, zero, attribute, size}));
  }
  std::int32_t TVSCPI_SetAttributeViInt32(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                          std::int32_t value) override {
    return Note("SetAttributeViInt32", Arguments({session, zero, attribute, value}));
  }
  std::int32_t TVSCPI_SetAttributeViString(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                           const std::string& text) override {
    return Note("SetAttributeViString", Arguments({session, zero, attribute}, text));
  }
  std::int32_t TVSCPI_error_message(std::int32_t session, std::int32_t status, char* buffer) override {
    constexpr std::size_t size = 256;
    Fill(buffer, size, Message);
    return Note("error_message", Arguments({session, status}));
  }

private:
  static std::string Arguments(const std::vector<std::int32_t>& numbers, const std::optional<std::string>& text = {}) {
    std::string list;
    for (const std::int32_t number : numbers) list += (list.empty() ? "" : ",") + std::to_string(number);
    return "(" + list + (text ? "," + *text : "") + ")";
  }
  std::int32_t Note(const std::string& function, const std::string& arguments) {
    Calls.push_back(function + arguments);
    const auto status = Status.find(function);
    return status == Status.end() ? 0 : status->second;
  }
  void Fill(char* buffer, std::size_t size, const std::string& text) {
    Found.assign(buffer, size);
    std::copy_n(text.begin(), std::min(size, text.size()), buffer);
  }
};

} // namespace portico::test
