#include "simulator/vxi11/ServedVxi11.h"

#include "wire/PortMapper.h"

#include <utility>

namespace portico::simulator {
namespace {

using wire::RpcCall;
using wire::RpcReply;
using wire::RpcStatus;
using wire::XdrReader;
using wire::XdrWriter;
namespace PortMapper = wire::PortMapper;
namespace Vxi11 = wire::Vxi11;

/// More than what a DeviceWrite may carry, so that one that carries too much is told so.
constexpr std::size_t LongestCall = wire::MaxRpcHeader + std::size_t{4} * Vxi11Calls::LongestWrite;

/// Every program has a procedure that does nothing.
constexpr std::uint32_t NoProcedure = 0;

constexpr std::uint32_t RpcVersion = 2;

RpcStatus StatusOf(CallOutcome outcome) {
  switch (outcome) {
  case CallOutcome::BadArguments:
    return RpcStatus::BadArguments;
  case CallOutcome::UnknownProcedure:
    return RpcStatus::ProcedureUnavailable;
  default:
    return RpcStatus::Success;
  }
}

} // namespace

server::ConnectionFactory ServedVxi11::Factory(Instrument& instrument) {
  return Factory(std::make_shared<StreamInstrument>(instrument));
}

server::ConnectionFactory ServedVxi11::Factory(std::shared_ptr<IMessageInstrument> instrument) {
  return [links = std::make_shared<Vxi11Links>(std::move(instrument))](std::uint16_t port) {
    return std::make_unique<ServedVxi11>(links, port);
  };
}

server::ConnectionFactory ServedVxi11::PortMapperFactory(std::function<std::uint16_t()> corePort) {
  return [corePort = std::move(corePort)](std::uint16_t /*port*/) {
    return std::make_unique<ServedVxi11>(nullptr, corePort());
  };
}

ServedVxi11::ServedVxi11(std::shared_ptr<Vxi11Links> links, std::uint16_t port)
    : m_links(std::move(links)), m_port(port), m_calls(m_links, port), m_record(LongestCall) {}

void ServedVxi11::Receive(std::string_view bytes, TimePoint /*now*/) { m_input += bytes; }

void ServedVxi11::Collect(std::string& output, TimePoint now) {
  const std::size_t before = output.size();
  while (output.size() == before && !m_broken) {
    if (!m_record.Complete()) {
      m_input.erase(0, m_record.Feed(m_input));
      m_broken = m_record.TooLong();
      if (!m_record.Complete()) return;
      m_calledAt = now;
    }
    if (!Answer(output, now)) return;
    m_record.Restart();
  }
}

bool ServedVxi11::Answer(std::string& output, TimePoint now) {
  XdrReader reader(m_record.Content());
  RpcCall call;
  RpcReply reply;
  std::string results;
  switch (wire::ReadRpcCall(reader, call)) {
  case wire::RpcCallKind::Malformed:
    m_broken = true;
    return false;
  case wire::RpcCallKind::OtherRpcVersion:
    reply.Status = RpcStatus::RpcMismatch;
    reply.LowestVersion = reply.HighestVersion = RpcVersion;
    break;
  case wire::RpcCallKind::Call: {
    XdrWriter writer(results);
    const CallOutcome outcome = CarryOut(call, reader, writer, now, reply);
    if (outcome == CallOutcome::Waits) return false;
    if (reply.Status == RpcStatus::Success) reply.Status = StatusOf(outcome);
  }
  }
  reply.Xid = call.Xid;
  if (m_links && m_links->TakesWrongNumber()) --reply.Xid;
  const std::size_t begin = wire::BeginRpcRecord(output);
  XdrWriter writer(output);
  wire::WriteRpcReply(writer, reply);
  output += results;
  wire::EndRpcRecord(output, begin);
  return true;
}

CallOutcome ServedVxi11::CarryOut(const RpcCall& call, XdrReader& arguments, XdrWriter& results, TimePoint now,
                                  RpcReply& reply) {
  const bool isPortMapper = call.Program == PortMapper::Program;
  const bool isVxi11 = m_links && (call.Program == Vxi11::CoreProgram || call.Program == Vxi11::AbortProgram);
  const std::uint32_t version = isPortMapper ? PortMapper::Version : Vxi11::Version;
  if (!isPortMapper && !isVxi11) {
    reply.Status = RpcStatus::ProgramUnavailable;
    return CallOutcome::Done;
  }
  if (call.Version != version) {
    reply.Status = RpcStatus::ProgramMismatch;
    reply.LowestVersion = reply.HighestVersion = version;
    return CallOutcome::Done;
  }
  if (call.Procedure == NoProcedure) return CallOutcome::Done;
  if (isPortMapper) return FindPort(call.Procedure, arguments, results);
  if (call.Program == Vxi11::AbortProgram) return Abort(call.Procedure, arguments, results);
  return m_calls.CarryOut(call.Procedure, arguments, results, m_calledAt, now);
}

CallOutcome ServedVxi11::Abort(std::uint32_t procedure, XdrReader& arguments, XdrWriter& results) {
  if (static_cast<Vxi11::AbortProcedure>(procedure) != Vxi11::AbortProcedure::DeviceAbort) {
    return CallOutcome::UnknownProcedure;
  }
  Vxi11::LinkArguments link;
  if (!arguments.Get(link)) return CallOutcome::BadArguments;
  Vxi11Link* found = m_links->Find(link.Link);
  if (found != nullptr) found->Aborted = found->Waits;
  results.Put(Vxi11::ErrorResult{found != nullptr ? Vxi11::Error::None : Vxi11::Error::InvalidLink});
  return CallOutcome::Done;
}

CallOutcome ServedVxi11::FindPort(std::uint32_t procedure, XdrReader& arguments, XdrWriter& results) const {
  if (procedure != PortMapper::GetPort) return CallOutcome::UnknownProcedure;
  PortMapper::Mapping mapping;
  if (!arguments.Get(mapping)) return CallOutcome::BadArguments;
  const bool isOurs = mapping.Program == Vxi11::CoreProgram && mapping.Version == Vxi11::Version &&
                      mapping.Protocol == PortMapper::Protocol::Tcp;
  results.Put(PortMapper::PortResult{isOurs ? m_port : std::uint16_t{0}});
  return CallOutcome::Done;
}

bool ServedVxi11::Finished(bool inputEnded) const { return m_broken || inputEnded || m_calls.CloseRequested(); }

} // namespace portico::simulator
