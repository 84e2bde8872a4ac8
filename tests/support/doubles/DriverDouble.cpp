#include "support/doubles/DriverDouble.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace portico::test {

using std::to_string;

DriverDouble::DriverDouble(Journal& journal) : m_journal(journal) {}

std::int32_t DriverDouble::TVSCPI_init(const std::string& name, std::int32_t idQuery, std::int32_t reset,
                                       std::int32_t& session) {
  Detail("init", {name, to_string(idQuery), to_string(reset)});
  const std::int32_t status = Call("init " + name, "init");
  const std::int32_t handle = status == 0 ? Handle : HandleOfFailure;
  if (handle != 0) session = handle;
  return status;
}

std::int32_t DriverDouble::TVSCPI_close(std::int32_t session) {
  Detail("close", {to_string(session)});
  return Call("close", "close");
}

std::int32_t DriverDouble::TVSCPI_WriteInstrData(std::int32_t session, const std::string& text) {
  Detail("WriteInstrData", {to_string(session), text});
  EXPECT_TRUE(!text.empty() && text.back() == '\r') << text;
  const std::string written = text.substr(0, text.size() - 1);
  const std::int32_t status = Call("write " + written, "WriteInstrData");
  return status == 0 && OnWrite ? OnWrite(written) : status;
}

std::int32_t DriverDouble::TVSCPI_ReadInstrData(std::int32_t session, std::int32_t size, char* buffer,
                                                std::int32_t& count) {
  Detail("ReadInstrData", {to_string(session), to_string(size)});
  count = 0;
  if (const std::int32_t status = Call("read", "ReadInstrData"); status != 0) return status;
  const Reading reading = OnRead ? OnRead() : Reading{0, Answer + '\0'};
  Fill(buffer, static_cast<std::size_t>(size), reading.Bytes);
  count = reading.Count.value_or(static_cast<std::int32_t>(reading.Bytes.size()));
  return reading.Status;
}

std::int32_t DriverDouble::TVSCPI_GetAttributeViInt32(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                                      std::int32_t& value) {
  value = Number;
  Detail("GetAttributeViInt32", {to_string(session), to_string(zero), to_string(attribute)});
  return Call("get " + to_string(attribute), "GetAttributeViInt32");
}

std::int32_t DriverDouble::TVSCPI_GetAttributeViString(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                                       std::int32_t size, char* buffer) {
  Fill(buffer, static_cast<std::size_t>(size), Text);
  Detail("GetAttributeViString", {to_string(session), to_string(zero), to_string(attribute), to_string(size)});
  return Call("get " + to_string(attribute), "GetAttributeViString");
}

std::int32_t DriverDouble::TVSCPI_SetAttributeViInt32(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                                      std::int32_t value) {
  Detail("SetAttributeViInt32", {to_string(session), to_string(zero), to_string(attribute), to_string(value)});
  return Call("set " + to_string(attribute) + " " + to_string(value), "SetAttributeViInt32");
}

std::int32_t DriverDouble::TVSCPI_SetAttributeViString(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                                       const std::string& text) {
  Detail("SetAttributeViString", {to_string(session), to_string(zero), to_string(attribute), text});
  return Call("set " + to_string(attribute) + " " + text, "SetAttributeViString");
}

std::int32_t DriverDouble::TVSCPI_error_message(std::int32_t session, std::int32_t status, char* buffer) {
  constexpr std::size_t size = 256; // as the contract has it
  Fill(buffer, size, Message.value_or("failure " + to_string(status) + "\n" + '\0'));
  Detail("error_message", {to_string(session), to_string(status)});
  return 0;
}

std::int32_t DriverDouble::SetTimeout(std::chrono::milliseconds timeout) {
  Detail("SetTimeout", {to_string(timeout.count())});
  return Call("timeout " + to_string(timeout.count()), "SetTimeout");
}

std::int32_t DriverDouble::Clear(std::int32_t session) {
  Detail("Clear", {to_string(session)});
  return Call("clear", "Clear");
}

std::int32_t DriverDouble::GoToLocal(std::int32_t session) {
  Detail("GoToLocal", {to_string(session)});
  return Call("local", "GoToLocal");
}

std::int32_t DriverDouble::CanReadInPieces(std::int32_t session) {
  Detail("CanReadInPieces", {to_string(session)});
  const auto status = Statuses.find("CanReadInPieces");
  return status == Statuses.end() ? 0 : status->second;
}

std::int32_t DriverDouble::ReadInPieces(std::int32_t session, const AnswerSink& sink) {
  Detail("ReadInPieces", {to_string(session)});
  for (const std::string& piece : Pieces) {
    if (!sink(piece)) return -1;
  }
  return Call("stream", "ReadInPieces");
}

void DriverDouble::Detail(const std::string& function, std::initializer_list<std::string> arguments) const {
  if (!OnDetail) return;
  std::string list;
  for (const std::string& argument : arguments) list += (list.empty() ? "" : ",") + argument;
  OnDetail(function + "(" + list + ")");
}

std::int32_t DriverDouble::Call(const std::string& line, const std::string& function) {
  m_journal.push_back(line);
  if (OnCall) OnCall(line);
  for (const std::string& key : {line, function}) {
    if (const auto status = Statuses.find(key); status != Statuses.end()) return status->second;
  }
  return 0;
}

void DriverDouble::Fill(char* buffer, std::size_t size, const std::string& bytes) {
  if (Found) Found->assign(buffer, size);
  std::copy_n(bytes.begin(), std::min(size, bytes.size()), buffer);
}

} // namespace portico::test
