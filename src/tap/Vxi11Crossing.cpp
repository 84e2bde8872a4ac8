#include "tap/Vxi11Crossing.h"

#include "wire/PortMapper.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace portico::tap {
namespace {

using namespace wire;
namespace Vxi11 = wire::Vxi11;
using Vxi11::CoreProcedure;

/// Every program has a procedure that does nothing.
constexpr std::uint32_t NoProcedure = 0;

/// Calls that a client makes before the reply to the first has come.
constexpr std::size_t MostPending = 64;

/// The most that a DeviceWrite may carry, so that it crosses with its head.
constexpr auto LongestWrite = static_cast<std::uint32_t>(Vxi11Crossing::LongestRecord / 2);

void AppendRecord(std::string& output, std::string_view content) {
  const std::size_t begin = BeginRpcRecord(output);
  output += content;
  EndRpcRecord(output, begin);
}

} // namespace

server::ConnectionFactory Vxi11Crossing::Factory(Place& place, std::string device) {
  return [&place, device = std::move(device)](std::uint16_t port) {
    return std::make_shared<Vxi11Crossing>(place, device, port)->ClientEnd();
  };
}

Vxi11Crossing::Vxi11Crossing(Place& place, std::string device, std::uint16_t port)
    : Crossing(place.Record), m_place(place), m_device(std::move(device)), m_port(port) {}

void Vxi11Crossing::FromClient(std::string_view bytes) {
  while (!bytes.empty()) {
    bytes.remove_prefix(m_calls.Feed(bytes));
    if (m_calls.TooLong()) return GiveWay();
    if (!m_calls.Complete()) return;
    TakeCall(m_calls.Content());
    m_calls.Restart();
  }
}

void Vxi11Crossing::FromInstrument(std::string_view bytes) {
  while (!bytes.empty()) {
    bytes.remove_prefix(m_replies.Feed(bytes));
    if (m_replies.TooLong()) return GiveWay();
    if (!m_replies.Complete()) return;
    TakeReply(m_replies.Content());
    m_replies.Restart();
  }
}

void Vxi11Crossing::TakeCall(std::string_view record) {
  XdrReader reader(record);
  RpcCall call;
  const RpcCallKind kind = ReadRpcCall(reader, call);
  if (m_kind == Kind::Unconnected) {
    if (kind != RpcCallKind::Call) return DismissClient();
    if (!Begin(call, reader)) return;
  }
  if (m_kind == Kind::Core && kind == RpcCallKind::Call && call.Program == Vxi11::CoreProgram) Note(call, reader);
  Vxi11::CreateLinkArguments link;
  const bool links = !m_pending.empty() && m_pending.back().Xid == call.Xid &&
                     m_pending.back().Procedure == CoreProcedure::CreateLink && reader.Get(link);
  if (!links) return AppendRecord(ToInstrument(), record);
  link.Device = m_device;
  std::string content;
  XdrWriter writer(content);
  WriteRpcCall(writer, call);
  writer.Put(link);
  AppendRecord(ToInstrument(), content);
}

bool Vxi11Crossing::Begin(const RpcCall& call, XdrReader arguments) {
  if (call.Procedure == NoProcedure) {
    Refuse(call, RpcStatus::Success);
  } else if (call.Program == PortMapper::Program) {
    FindPort(call, arguments);
  } else if (call.Program == Vxi11::AbortProgram) {
    BeginAbort(call);
  } else if (call.Program != Vxi11::CoreProgram) {
    Refuse(call, RpcStatus::ProgramUnavailable);
  } else if (static_cast<CoreProcedure>(call.Procedure) != CoreProcedure::CreateLink) {
    Answer(call, Vxi11::ErrorResult{Vxi11::Error::InvalidLink});
  } else {
    return BeginCore(call);
  }
  return m_kind != Kind::Unconnected;
}

bool Vxi11Crossing::BeginCore(const RpcCall& call) {
  if (!m_place.Take(shared_from_this())) {
    Answer(call, Vxi11::CreateLinkResult{Vxi11::Error::OutOfResources});
    return false;
  }
  if (!m_place.Line.Connect(InstrumentEnd())) {
    Answer(call, Vxi11::CreateLinkResult{Vxi11::Error::DeviceNotAccessible});
    DismissClient();
    return false;
  }
  m_kind = Kind::Core;
  m_recording = std::make_shared<Recording>(m_place.Record);
  return true;
}

void Vxi11Crossing::BeginAbort(const RpcCall& call) {
  const auto core = std::dynamic_pointer_cast<Vxi11Crossing>(m_place.Taken());
  if (!core || core->m_abortPort == 0) return Answer(call, Vxi11::ErrorResult{Vxi11::Error::InvalidLink});
  if (!m_place.Line.ConnectFurther(InstrumentEnd(), core->m_abortPort)) return DismissClient();
  m_kind = Kind::Abort;
}

void Vxi11Crossing::FindPort(const RpcCall& call, XdrReader arguments) {
  PortMapper::Mapping mapping;
  if (call.Procedure != PortMapper::GetPort) return Refuse(call, RpcStatus::ProcedureUnavailable);
  if (!arguments.Get(mapping)) return Refuse(call, RpcStatus::BadArguments);
  const bool isOurs = mapping.Program == Vxi11::CoreProgram && mapping.Version == Vxi11::Version &&
                      mapping.Protocol == PortMapper::Protocol::Tcp;
  Answer(call, PortMapper::PortResult{isOurs ? m_port : std::uint16_t{0}});
}

/// What has to be known of the call when its reply comes.
void Vxi11Crossing::Note(const RpcCall& call, XdrReader arguments) {
  Pending pending{call.Xid, static_cast<CoreProcedure>(call.Procedure)};
  Vxi11::DeviceWriteArguments write;
  if (pending.Procedure == CoreProcedure::DeviceWrite) {
    arguments.Get(write);
    pending.Link = write.Link;
    pending.Data = write.Data;
    pending.End = (write.Flags & Vxi11::Flag::End) != 0;
  } else if (pending.Procedure != CoreProcedure::CreateLink) {
    arguments.Get(pending.Link); // stands first in all others
  }
  if (m_pending.size() == MostPending) m_pending.pop_front();
  m_pending.push_back(std::move(pending));
}

void Vxi11Crossing::TakeReply(std::string_view record) {
  XdrReader reader(record);
  RpcReply reply;
  const bool valid = ReadRpcReply(reader, reply);
  const auto found = std::find_if(m_pending.begin(), m_pending.end(),
                                  [&reply](const Pending& pending) { return pending.Xid == reply.Xid; });
  std::string results;
  if (valid && found != m_pending.end()) {
    const Pending pending = std::move(*found);
    m_pending.erase(found);
    if (reply.Status == RpcStatus::Success) results = Heed(pending, reader);
  }
  if (results.empty()) return AppendRecord(ToClient(), record);
  std::string content;
  XdrWriter writer(content);
  WriteRpcReply(writer, reply);
  AppendRecord(ToClient(), content + results);
}

std::string Vxi11Crossing::Heed(const Pending& call, XdrReader results) {
  std::string changed;
  Vxi11::CreateLinkResult link;
  Vxi11::DeviceWriteResult written;
  Vxi11::DeviceReadResult read;
  Vxi11::ErrorResult result;
  switch (call.Procedure) {
  case CoreProcedure::CreateLink:
    if (!results.Get(link) || link.Error != Vxi11::Error::None) break;
    m_abortPort = link.AbortPort;
    if (m_abortPort != 0) link.AbortPort = m_port;
    link.MaxReceiveSize = std::min(link.MaxReceiveSize, LongestWrite);
    XdrWriter(changed).Put(link);
    break;
  case CoreProcedure::DeviceWrite:
    if (!results.Get(written) || written.Error != Vxi11::Error::None) break;
    TalkOn(call.Link).Sent(std::string_view(call.Data).substr(0, written.Size),
                           call.End && written.Size >= call.Data.size());
    break;
  case CoreProcedure::DeviceRead:
    if (!results.Get(read)) break;
    TalkOn(call.Link).Answered(read.Data, (read.Reason & Vxi11::Reason::End) != 0);
    break;
  case CoreProcedure::DeviceClear:
    if (results.Get(result) && result.Error == Vxi11::Error::None) TalkOn(call.Link).Break();
    break;
  case CoreProcedure::DestroyLink:
    m_links.erase(call.Link);
    break;
  default:
    break;
  }
  return changed;
}

Talk& Vxi11Crossing::TalkOn(std::int32_t link) {
  return m_links
      .try_emplace(link, m_recording, drivers::Marks::Ends) // links are as many as the instrument lets there be
      .first->second;
}

/// Answers without results.
void Vxi11Crossing::Refuse(const RpcCall& call, RpcStatus status) {
  const std::size_t begin = BeginRpcRecord(ToClient());
  XdrWriter writer(ToClient());
  WriteRpcReply(writer, {call.Xid, status});
  EndRpcRecord(ToClient(), begin);
}

template <typename Result>
void Vxi11Crossing::Answer(const RpcCall& call, const Result& result) {
  const std::size_t begin = BeginRpcRecord(ToClient());
  XdrWriter writer(ToClient());
  WriteRpcReply(writer, {call.Xid, RpcStatus::Success});
  writer.Put(result);
  EndRpcRecord(ToClient(), begin);
}

} // namespace portico::tap
