#include "drivers/vxi11/PortMapping.h"

#include "wire/PortMapper.h"

#include <chrono>

namespace portico::drivers {
namespace {

namespace PortMapper = wire::PortMapper;

// A portmapper listens to changes from its own machine only.
constexpr const char* OwnMachine = "127.0.0.1";

constexpr auto PatienceAtTheEnd = std::chrono::seconds(1);

} // namespace

PortMapping::~PortMapping() {
  if (m_port == 0) return;
  const TimePoint deadline = TimePoint::clock::now() + PatienceAtTheEnd;
  PortMapper::PortResult known;
  const bool isOurs = Call(PortMapper::GetPort, 0, known, deadline).Succeeded() && known.Port == m_port;
  PortMapper::ChangeResult answer;
  if (isOurs) Call(PortMapper::Unset, 0, answer, deadline);
}

DriverResult PortMapping::Set(std::uint16_t port, TimePoint deadline) {
  PortMapper::ChangeResult answer;
  // What another program has left there would be in the way.
  DriverResult result = Call(PortMapper::Unset, 0, answer, deadline);
  if (result.Succeeded()) result = Call(PortMapper::Set, port, answer, deadline);
  if (result.Succeeded() && !answer.Done) {
    return {DriverStatus::ConnectFailed, "the portmapper does not take the entry"};
  }
  if (result.Succeeded()) m_port = port;
  return result;
}

template <typename Answer>
DriverResult PortMapping::Call(std::uint32_t procedure, std::uint16_t port, Answer& answer, TimePoint deadline) {
  constexpr std::size_t resultLimit = 4;
  RpcChannel channel(m_connect(OwnMachine, PortMapper::Port), "the portmapper", PortMapper::Program,
                     PortMapper::Version, resultLimit);
  if (DriverResult result = channel.Stream().Open(deadline); !result.Succeeded()) return result;
  const PortMapper::Mapping mapping = {m_program, m_version, PortMapper::Protocol::Tcp, port};
  return channel.Client().Call(procedure, mapping, answer, deadline);
}

} // namespace portico::drivers
