#include "wire/PortMapper.h"
#include "wire/RpcMessage.h"
#include "wire/Vxi11Messages.h"

#include <array>
#include <cstdlib>

using namespace portico::wire;

namespace {

template <typename T>
std::string Written(const T& record) {
  std::string bytes;
  XdrWriter(bytes).Put(record);
  return bytes;
}

/// What is read is as long as what is written of it, and is read from that as it was.
template <typename T>
void CheckRecord(std::string_view bytes) {
  XdrReader reader(bytes);
  T record;
  if (!reader.Get(record)) {
    if (!reader.Failed() || !reader.Rest().empty()) std::abort();
    return;
  }
  const std::string written = Written(record);
  if (written.size() != bytes.size() - reader.Rest().size()) std::abort();
  XdrReader again(written);
  T copy;
  if (!again.Get(copy) || !again.Rest().empty() || Written(copy) != written) std::abort();
}

void CheckCall(std::string_view bytes) {
  XdrReader reader(bytes);
  RpcCall call;
  if (ReadRpcCall(reader, call) != RpcCallKind::Call) return;
  if (bytes.size() - reader.Rest().size() > MaxRpcHeader) std::abort();
  std::string written;
  XdrWriter writer(written);
  WriteRpcCall(writer, call);
  XdrReader again(written);
  RpcCall copy;
  if (ReadRpcCall(again, copy) != RpcCallKind::Call || !again.Rest().empty() || copy != call) std::abort();
}

void CheckReply(std::string_view bytes) {
  XdrReader reader(bytes);
  RpcReply reply;
  if (!ReadRpcReply(reader, reply)) {
    if (!reader.Failed() || !reader.Rest().empty()) std::abort();
    return;
  }
  std::string written;
  XdrWriter writer(written);
  WriteRpcReply(writer, reply);
  XdrReader again(written);
  RpcReply copy;
  if (!ReadRpcReply(again, copy) || !again.Rest().empty() || copy != reply) std::abort();
}

constexpr std::array Checks = {
    CheckCall,
    CheckReply,
    CheckRecord<PortMapper::Mapping>,
    CheckRecord<PortMapper::PortResult>,
    CheckRecord<Vxi11::CreateLinkArguments>,
    CheckRecord<Vxi11::CreateLinkResult>,
    CheckRecord<Vxi11::DeviceWriteArguments>,
    CheckRecord<Vxi11::DeviceWriteResult>,
    CheckRecord<Vxi11::DeviceReadArguments>,
    CheckRecord<Vxi11::DeviceReadResult>,
    CheckRecord<Vxi11::GenericArguments>,
    CheckRecord<Vxi11::DeviceReadStbResult>,
    CheckRecord<Vxi11::LinkArguments>,
    CheckRecord<Vxi11::ErrorResult>,
    CheckRecord<Vxi11::DeviceLockArguments>,
    CheckRecord<Vxi11::DeviceEnableSrqArguments>,
    CheckRecord<Vxi11::DeviceDoCmdArguments>,
    CheckRecord<Vxi11::DeviceDoCmdResult>,
    CheckRecord<PortMapper::ChangeResult>,
};

} // namespace

// What is read of a client or a server says the same when it is written and read again. The first byte picks what the
// others are read as.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  Checks[data[0] % Checks.size()]({reinterpret_cast<const char*>(data) + 1, size - 1});
  return 0;
}
