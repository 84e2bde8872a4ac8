#include "benchmarks/BareProtocols.h"

#include "benchmarks/BareWire.h"
#include "wire/HislipMessage.h"
#include "wire/RpcMessage.h"
#include "wire/RpcRecord.h"
#include "wire/Vxi11Messages.h"

#include <memory>
#include <stdexcept>
#include <utility>

namespace portico {
namespace {

using namespace wire;

std::uint32_t NumberAt(std::string_view bytes, std::size_t place) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < 4; ++i) number = number << 8 | static_cast<unsigned char>(bytes[place + i]);
  return number;
}

void PutNumber(std::string& bytes, std::size_t place, std::uint32_t number) {
  for (std::size_t i = 0; i < 4; ++i) bytes[place + i] = static_cast<char>(number >> (24 - 8 * i) & 0xFFU);
}

BareQuery Lines(std::shared_ptr<BareWire> wire, const std::string& text) {
  return [wire = std::move(wire), line = text + "\r\n"] {
    wire->Send(line);
    return wire->ReceiveLine();
  };
}

// Of an RPC record of one fragment.
constexpr std::size_t CallNumberAt = 4;   // behind the mark
constexpr std::size_t ResultsAt = 4 + 24; // behind mark and head of a reply
constexpr std::size_t DataAt = ResultsAt + 12;

template <typename Arguments>
std::string CallRecord(Vxi11::CoreProcedure procedure, const Arguments& arguments) {
  std::string bytes;
  const std::size_t begin = BeginRpcRecord(bytes);
  XdrWriter writer(bytes);
  WriteRpcCall(writer, {0, Vxi11::CoreProgram, Vxi11::Version, static_cast<std::uint32_t>(procedure)});
  writer.Put(arguments);
  EndRpcRecord(bytes, begin);
  return bytes;
}

bool IsWholeRecord(std::string_view received) {
  return received.size() >= 4 && received.size() == 4 + (NumberAt(received, 0) & 0x7FFFFFFFU);
}

std::string_view Call(BareWire& wire, std::string& record, std::uint32_t number) {
  PutNumber(record, CallNumberAt, number);
  wire.Send(record);
  return wire.ReceiveUntil(IsWholeRecord);
}

bool EndsAnswer(std::string_view received) {
  const auto header = ReadHislipHeader(received.substr(0, HislipHeaderSize));
  return header && received.size() == HislipHeaderSize + header->PayloadLength;
}

} // namespace

BareQuery BareSocketQuery(std::uint16_t port, const std::string& text) {
  return Lines(std::make_shared<BareWire>(port), text);
}

BareQuery BareSerialQuery(const std::string& path, const std::string& text) {
  return Lines(std::make_shared<BareWire>(path.c_str()), text);
}

BareQuery BareVxi11Query(std::uint16_t port, const std::string& text) {
  constexpr std::uint32_t timeout = 5000;
  constexpr std::uint32_t lockTimeout = timeout / 2;
  constexpr std::uint32_t mostBytes = 65536;
  using Vxi11::CoreProcedure;
  namespace Flag = Vxi11::Flag;
  const auto wire = std::make_shared<BareWire>(port);
  std::string create = CallRecord(CoreProcedure::CreateLink, Vxi11::CreateLinkArguments{0, false, 0, "inst0"});
  const auto link = static_cast<std::int32_t>(NumberAt(Call(*wire, create, 1), ResultsAt + 4));
  const std::string line = text + "\r\n";
  std::string write =
      CallRecord(CoreProcedure::DeviceWrite,
                 Vxi11::DeviceWriteArguments{link, timeout, lockTimeout, Flag::WaitForLock | Flag::End, line});
  std::string read =
      CallRecord(CoreProcedure::DeviceRead,
                 Vxi11::DeviceReadArguments{link, mostBytes, timeout, lockTimeout, Flag::WaitForLock, 0});
  return [wire, write, read, number = 1U]() mutable {
    Call(*wire, write, ++number);
    const std::string_view reply = Call(*wire, read, ++number);
    return reply.substr(DataAt, NumberAt(reply, DataAt - 4));
  };
}

BareQuery BareHislipQuery(std::uint16_t port, const std::string& text) {
  constexpr std::size_t numberAt = 4;
  const auto synchronous = std::make_shared<BareWire>(port);
  const auto asynchronous = std::make_shared<BareWire>(port);
  synchronous->Send(
      HislipMessage(HislipType::Initialize, 0, HislipVersionAnd(HislipVersion1, HislipVendorId), "hislip0"));
  const std::uint32_t session = NumberAt(synchronous->ReceiveUntil(EndsAnswer), numberAt) & 0xFFFFU;
  asynchronous->Send(HislipMessage(HislipType::AsyncInitialize, 0, session));
  asynchronous->ReceiveUntil(EndsAnswer);
  asynchronous->Send(HislipMessage(HislipType::AsyncMaximumMessageSize, 0, 0, HislipSize(1048576 + HislipHeaderSize)));
  asynchronous->ReceiveUntil(EndsAnswer);
  std::string message = HislipMessage(HislipType::DataEnd, HislipControl::ResponseDelivered, 0, text + "\r\n");
  return [synchronous, asynchronous, message, number = HislipFirstMessageId]() mutable {
    PutNumber(message, numberAt, number);
    number += HislipMessageIdStep;
    synchronous->Send(message);
    return synchronous->ReceiveUntil(EndsAnswer).substr(HislipHeaderSize);
  };
}

} // namespace portico
