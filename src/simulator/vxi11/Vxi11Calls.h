#pragma once

#include "simulator/vxi11/Vxi11Links.h"
#include "wire/Vxi11Messages.h"
#include "wire/Xdr.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>

namespace portico::simulator {

/// How far a call of a procedure has come.
enum class CallOutcome {
  Done,
  /// It has to wait, and is made again then.
  Waits,
  BadArguments,
  UnknownProcedure,
};

/// The calls of one client to the core channel, one at a time, and the links that it has made by them.
class Vxi11Calls {
public:
  /// The most that one DeviceWrite may carry, in bytes.
  static constexpr std::uint32_t LongestWrite = 65536;

  /// `port` is where the abort channel is.
  Vxi11Calls(std::shared_ptr<Vxi11Links> links, std::uint16_t port) : m_links(std::move(links)), m_port(port) {}
  ~Vxi11Calls();
  Vxi11Calls(const Vxi11Calls&) = delete;
  Vxi11Calls& operator=(const Vxi11Calls&) = delete;

  /// Carries out a call that came at `calledAt`. Writes its results if it is done, and nothing else.
  CallOutcome CarryOut(std::uint32_t procedure, wire::XdrReader& arguments, wire::XdrWriter& results,
                       TimePoint calledAt, TimePoint now);

  /// When a call that waits is to be made again.
  std::optional<TimePoint> NextEvent() const;
  /// Whether the device asked for the end of the connection, and all answers are read.
  bool CloseRequested() const;

private:
  /// Reads the arguments and makes sure of the link, waits for the lock where they allow it, and then has `procedure`
  /// carry the call out.
  template <typename Arguments, typename Result, typename Procedure>
  CallOutcome OnLink(wire::XdrReader& arguments, wire::XdrWriter& results, Procedure procedure);
  CallOutcome CreateLink(wire::XdrReader& reader, wire::XdrWriter& results);
  /// Begins a new link, for a client that may have one.
  wire::Vxi11::Error MakeLink(bool lock);
  /// Whether it is known what has come of that.
  bool Opened(wire::Vxi11::CreateLinkResult& result);
  CallOutcome WaitFor(Vxi11Link* link, std::optional<std::int32_t> number, TimePoint deadline);

  const std::shared_ptr<Vxi11Links> m_links;
  const std::uint16_t m_port;
  std::set<std::int32_t> m_own;

  std::optional<std::int32_t> m_opening; ///< the link that has no connection yet

  // Of the call that is being made.
  TimePoint m_calledAt{};
  TimePoint m_now{};
  std::optional<TimePoint> m_begun; ///< since when no lock has been in its way

  struct Wait {
    Vxi11Link* Link;                    ///< a null pointer where there is none yet
    std::optional<std::int32_t> Number; ///< of that link
    TimePoint Deadline;
  };
  std::optional<Wait> m_wait;
};

} // namespace portico::simulator
