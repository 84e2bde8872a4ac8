#include "contract/DriverBench.h"

#include "drivers/DriverStatus.h"

#include <array>

namespace portico::test {

using drivers::ErrorMessageBufferSize;

void DriverContract::Start(InstrumentScript script, std::chrono::milliseconds timeout) {
  bench = GetParam().make(std::move(script), timeout);
  session = Open();
  ASSERT_GT(session, 0);
}

std::int32_t DriverContract::Open(const std::string& name) {
  std::int32_t opened = 0;
  EXPECT_EQ(Driver().TVSCPI_init(name, 0, 0, opened), Success);
  return opened;
}

std::int32_t DriverContract::Write(const std::string& text) {
  m_written += text + "\n";
  return Driver().TVSCPI_WriteInstrData(session, text);
}

ReadOutcome DriverContract::Read(std::int32_t size) {
  // One byte more than the driver is told of, to see that it leaves it alone.
  std::string buffer(static_cast<std::size_t>(size) + 1, '~');
  ReadOutcome outcome;
  outcome.count = -1;
  outcome.status = Driver().TVSCPI_ReadInstrData(session, size, buffer.data(), outcome.count);
  EXPECT_EQ(buffer.back(), '~');
  EXPECT_LE(outcome.count, size);
  outcome.bytes = buffer.substr(0, static_cast<std::size_t>(outcome.count));
  return outcome;
}

ReadOutcome DriverContract::ReadBriefly(std::int32_t size) {
  bench->Hurry();
  return Read(size);
}

void DriverContract::Ask(const std::string& command) {
  EXPECT_EQ(Write(command + "\r"), Success);
  bench->AwaitReaction(m_written);
}

std::string DriverContract::Query(const std::string& command) {
  Ask(command);
  ReadOutcome outcome = Read();
  EXPECT_EQ(outcome.status, Success) << command;
  if (!outcome.bytes.empty()) outcome.bytes.pop_back();
  return outcome.bytes;
}

std::string DriverContract::Message(std::int32_t status, std::int32_t ofSession) {
  std::array<char, ErrorMessageBufferSize + 1> buffer = {};
  buffer.fill('~');
  EXPECT_EQ(Driver().TVSCPI_error_message(ofSession, status, buffer.data()), Success);
  EXPECT_EQ(buffer.back(), '~');
  return buffer.data();
}

} // namespace portico::test
