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
  bool done = false;
  if (m_set) Change(PortMapper::Unset, 0, TimePoint::clock::now() + PatienceAtTheEnd, done);
}

DriverResult PortMapping::Set(std::uint16_t port, TimePoint deadline) {
  bool done = false;
  // What another program has left there would be in the way.
  DriverResult result = Change(PortMapper::Unset, 0, deadline, done);
  if (result.Succeeded()) result = Change(PortMapper::Set, port, deadline, done);
  if (result.Succeeded() && !done) return {DriverStatus::ConnectFailed, "the portmapper does not take the entry"};
  m_set = result.Succeeded();
  return result;
}

DriverResult PortMapping::Change(std::uint32_t procedure, std::uint16_t port, TimePoint deadline, bool& done) {
  constexpr std::size_t resultLimit = 4;
  RpcChannel channel(m_connect(OwnMachine, PortMapper::Port), "the portmapper", PortMapper::Program,
                     PortMapper::Version, resultLimit);
  DriverResult result = channel.Stream().Open(deadline);
  if (!result.Succeeded()) return result;
  const PortMapper::Mapping mapping = {m_program, m_version, PortMapper::Protocol::Tcp, port};
  PortMapper::ChangeResult answer;
  result = channel.Client().Call(procedure, mapping, answer, deadline);
  done = answer.Done;
  return result;
}

} // namespace portico::drivers
