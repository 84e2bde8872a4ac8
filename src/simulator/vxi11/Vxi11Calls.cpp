#include "simulator/vxi11/Vxi11Calls.h"

#include <algorithm>
#include <chrono>
#include <string_view>
#include <utility>

namespace portico::simulator {
namespace {

using namespace wire::Vxi11;
using wire::XdrReader;
using wire::XdrWriter;

/// The only device behind the server.
constexpr std::string_view DeviceName = "inst0";

/// The most that one DeviceRead gets, in bytes; the rest comes with the next.
constexpr std::size_t LongestRead = std::size_t{1} << 20U;

bool IsDeviceName(std::string_view name) {
  return std::equal(name.begin(), name.end(), DeviceName.begin(), DeviceName.end(), [](char given, char expected) {
    return given == expected || (given >= 'A' && given <= 'Z' && given - 'A' + 'a' == expected);
  });
}

TimePoint After(TimePoint begin, std::uint32_t timeout) { return begin + std::chrono::milliseconds(timeout); }

/// A call that may go on, on its link.
struct Context {
  Vxi11Links& Links;
  std::int32_t Number;
  Vxi11Link& Link;
  TimePoint Begun; ///< since when no lock has been in its way
  TimePoint Now;
};

/// Nothing more can be said or heard on its link.
bool IsLost(const Context& call) { return call.Link.Connection().Standing() == IMessageConnection::State::Lost; }

// The procedures. Each answers when it has waited long enough, for one that has to wait on, or nothing once it is done.
using Pause = std::optional<TimePoint>;

Pause Write(const Context& call, const DeviceWriteArguments& arguments, DeviceWriteResult& result) {
  IMessageConnection& connection = call.Link.Connection();
  if (arguments.Data.size() > Vxi11Calls::LongestWrite) {
    result.Error = Error::Parameter;
    return {};
  }
  if (IsLost(call)) {
    result.Error = Error::Io;
    return {};
  }
  if (!connection.HasRoom()) {
    const TimePoint deadline = After(call.Begun, arguments.IoTimeout);
    if (call.Now < deadline) return deadline;
    result.Error = Error::IoTimeout;
    return {};
  }
  connection.Write(arguments.Data, call.Now);
  if ((arguments.Flags & Flag::End) != 0) connection.End(call.Now);
  result.Size = static_cast<std::uint32_t>(arguments.Data.size());
  return {};
}

Pause Read(const Context& call, const DeviceReadArguments& arguments, DeviceReadResult& result) {
  const std::string_view answer = call.Link.Answer(call.Now);
  if (answer.empty() && IsLost(call)) {
    result.Error = Error::Io;
    return {};
  }
  if (answer.empty()) {
    const TimePoint deadline = After(call.Begun, arguments.IoTimeout);
    if (call.Now < deadline) return deadline;
    if (!call.Link.Busy()) call.Link.Connection().ReportUnterminated();
    result.Error = Error::IoTimeout;
    return {};
  }
  result.Data = answer.substr(0, std::min<std::size_t>(arguments.RequestSize, LongestRead));
  if ((arguments.Flags & Flag::TerminationCharacterSet) != 0) {
    const std::size_t end = result.Data.find(static_cast<char>(arguments.TerminationCharacter));
    if (end != std::string_view::npos) {
      result.Data = result.Data.substr(0, end + 1);
      result.Reason |= Reason::TerminationCharacterSeen;
    }
  }
  if (result.Data.size() == arguments.RequestSize) result.Reason |= Reason::RequestSizeReached;
  if (call.Link.Drop(result.Data.size())) result.Reason |= Reason::End;
  return {};
}

Pause ReadStb(const Context& call, const GenericArguments& /*arguments*/, DeviceReadStbResult& result) {
  result.StatusByte = call.Link.Connection().SerialPoll(call.Link.MessageAvailable(), call.Now);
  return {};
}

Pause Trigger(const Context& call, const GenericArguments& /*arguments*/, ErrorResult& /*result*/) {
  call.Link.Connection().End(call.Now);
  call.Link.Connection().Write("*TRG\n", call.Now);
  return {};
}

Pause Clear(const Context& call, const GenericArguments& /*arguments*/, ErrorResult& /*result*/) {
  call.Link.Clear(call.Now);
  return {};
}

/// There is no front panel that could be locked.
Pause Remote(const Context& /*call*/, const GenericArguments& /*arguments*/, ErrorResult& /*result*/) { return {}; }

Pause Lock(const Context& call, const DeviceLockArguments& /*arguments*/, ErrorResult& result) {
  if (!call.Links.Lock(call.Number)) result.Error = Error::LockedByAnotherLink;
  return {};
}

Pause Unlock(const Context& call, const LinkArguments& /*arguments*/, ErrorResult& result) {
  if (!call.Links.Unlock(call.Number)) result.Error = Error::NoLockHeld;
  return {};
}

/// There is no channel for requests of service.
Pause EnableSrq(const Context& /*call*/, const DeviceEnableSrqArguments& /*arguments*/, ErrorResult& result) {
  result.Error = Error::NotSupported;
  return {};
}

Pause DoCmd(const Context& /*call*/, const DeviceDoCmdArguments& /*arguments*/, DeviceDoCmdResult& result) {
  result.Error = Error::NotSupported;
  return {};
}

/// Whether the call minds another link's lock.
template <typename Arguments>
constexpr bool MindsLock = requires(const Arguments& arguments) {
  arguments.LockTimeout;
};

} // namespace

Vxi11Calls::~Vxi11Calls() {
  for (const std::int32_t number : m_own) m_links->Remove(number);
}

CallOutcome Vxi11Calls::CarryOut(std::uint32_t procedure, XdrReader& arguments, XdrWriter& results, TimePoint calledAt,
                                 TimePoint now) {
  if (!m_wait) m_begun.reset();
  m_wait.reset();
  m_calledAt = calledAt;
  m_now = now;
  switch (static_cast<CoreProcedure>(procedure)) {
  case CoreProcedure::CreateLink:
    return CreateLink(arguments, results);
  case CoreProcedure::DeviceWrite:
    return OnLink<DeviceWriteArguments, DeviceWriteResult>(arguments, results, Write);
  case CoreProcedure::DeviceRead:
    return OnLink<DeviceReadArguments, DeviceReadResult>(arguments, results, Read);
  case CoreProcedure::DeviceReadStb:
    return OnLink<GenericArguments, DeviceReadStbResult>(arguments, results, ReadStb);
  case CoreProcedure::DeviceTrigger:
    return OnLink<GenericArguments, ErrorResult>(arguments, results, Trigger);
  case CoreProcedure::DeviceClear:
    return OnLink<GenericArguments, ErrorResult>(arguments, results, Clear);
  case CoreProcedure::DeviceRemote:
  case CoreProcedure::DeviceLocal:
    return OnLink<GenericArguments, ErrorResult>(arguments, results, Remote);
  case CoreProcedure::DeviceLock:
    return OnLink<DeviceLockArguments, ErrorResult>(arguments, results, Lock);
  case CoreProcedure::DeviceUnlock:
    return OnLink<LinkArguments, ErrorResult>(arguments, results, Unlock);
  case CoreProcedure::DeviceEnableSrq:
    return OnLink<DeviceEnableSrqArguments, ErrorResult>(arguments, results, EnableSrq);
  case CoreProcedure::DeviceDoCmd:
    return OnLink<DeviceDoCmdArguments, DeviceDoCmdResult>(arguments, results, DoCmd);
  case CoreProcedure::DestroyLink:
    return OnLink<LinkArguments, ErrorResult>(
        arguments, results, [this](const Context& call, const LinkArguments& /*arguments*/, ErrorResult& /*result*/) {
          m_own.erase(call.Number);
          call.Links.Remove(call.Number);
          return Pause();
        });
  }
  return CallOutcome::UnknownProcedure;
}

CallOutcome Vxi11Calls::CreateLink(XdrReader& reader, XdrWriter& results) {
  CreateLinkArguments arguments;
  if (!reader.Get(arguments)) return CallOutcome::BadArguments;
  CreateLinkResult result;
  const TimePoint deadline = After(m_calledAt, arguments.LockTimeout);
  const bool locked = arguments.LockDevice && !m_opening && m_links->LockedFor(std::nullopt);
  if (!IsDeviceName(arguments.Device)) {
    result.Error = Error::DeviceNotAccessible;
  } else if (locked && m_now < deadline) {
    return WaitFor(nullptr, std::nullopt, deadline);
  } else if (locked) {
    result.Error = Error::LockedByAnotherLink;
  } else if (!m_opening) {
    result.Error = MakeLink(arguments.LockDevice);
  }
  if (m_opening && !Opened(result)) return CallOutcome::Waits;
  results.Put(result);
  return CallOutcome::Done;
}

Error Vxi11Calls::MakeLink(bool lock) {
  const auto number = m_links->Make();
  if (!number) return Error::OutOfResources;
  if (lock && !m_links->Lock(*number)) {
    m_links->Remove(*number);
    return Error::LockedByAnotherLink;
  }
  m_own.insert(*number);
  m_opening = number;
  return Error::None;
}

bool Vxi11Calls::Opened(CreateLinkResult& result) {
  Vxi11Link* link = m_links->Find(*m_opening);
  const auto standing = link->Connection().Standing();
  if (standing == IMessageConnection::State::Opening) {
    m_begun = m_now; // no lock is in its way
    m_wait = {link, m_opening, TimePoint::max()};
    return false;
  }
  const std::int32_t number = *std::exchange(m_opening, std::nullopt);
  if (standing == IMessageConnection::State::Open) {
    result = {Error::None, number, m_port, LongestWrite};
  } else {
    m_own.erase(number);
    m_links->Remove(number);
    result.Error = Error::DeviceNotAccessible;
  }
  return true;
}

template <typename Arguments, typename Result, typename Procedure>
CallOutcome Vxi11Calls::OnLink(XdrReader& reader, XdrWriter& results, Procedure procedure) {
  Arguments arguments;
  if (!reader.Get(arguments)) return CallOutcome::BadArguments;
  Vxi11Link* link = m_own.contains(arguments.Link) ? m_links->Find(arguments.Link) : nullptr;
  Result result;
  if (link == nullptr) {
    result.Error = Error::InvalidLink;
  } else if (std::exchange(link->Aborted, false)) {
    result.Error = Error::Abort;
  } else if (!m_begun && MindsLock<Arguments> && m_links->LockedFor(arguments.Link)) {
    if constexpr (MindsLock<Arguments>) {
      const TimePoint deadline = After(m_calledAt, arguments.LockTimeout);
      const bool waits = (arguments.Flags & Flag::WaitForLock) != 0 && m_now < deadline;
      if (waits) return WaitFor(link, arguments.Link, deadline);
      result.Error = Error::LockedByAnotherLink;
    }
  } else {
    if (!m_begun) m_begun = m_now;
    const Context call = {*m_links, arguments.Link, *link, *m_begun, m_now};
    if (const Pause pause = procedure(call, arguments, result)) return WaitFor(link, arguments.Link, *pause);
  }
  if (link != nullptr && m_own.contains(arguments.Link)) link->Waits = false;
  results.Put(result);
  return CallOutcome::Done;
}

CallOutcome Vxi11Calls::WaitFor(Vxi11Link* link, std::optional<std::int32_t> number, TimePoint deadline) {
  if (link != nullptr) link->Waits = true;
  m_wait = {link, number, deadline};
  return CallOutcome::Waits;
}

std::optional<TimePoint> Vxi11Calls::NextEvent() const {
  if (!m_wait) return std::nullopt;
  const auto& [link, number, deadline] = *m_wait;
  if (link != nullptr && link->Aborted) return m_now;
  if (!m_begun) return m_links->LockedFor(number) ? deadline : m_now;
  return std::min(deadline, link->Connection().NextEvent().value_or(deadline));
}

bool Vxi11Calls::CloseRequested() const {
  return std::any_of(m_own.begin(), m_own.end(), [this](std::int32_t number) {
    const Vxi11Link* link = m_links->Find(number);
    return link->Connection().CloseRequested() && !link->Busy();
  });
}

} // namespace portico::simulator
