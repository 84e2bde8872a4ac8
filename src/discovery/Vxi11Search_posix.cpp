#include "discovery/Vxi11Search.h"

#include "discovery/ListedInstrument.h"
#include "discovery/PortQuestion.h"
#include "system/NetworkInterfaces.h"
#include "wire/PortMapper.h"

#include <arpa/inet.h>
#include <array>
#include <cstddef>
#include <netinet/in.h>
#include <random>
#include <sys/socket.h>

namespace portico::discovery {
namespace {

constexpr int Questions = 3;
constexpr auto BetweenQuestions = std::chrono::seconds(1);
constexpr std::size_t LongestAnswer = 512; // bytes; a right one has 28
constexpr int MostAnswers = 256;           // at a time

sockaddr_in PortMapperAt(const std::string& address) {
  sockaddr_in place{};
  place.sin_family = AF_INET;
  place.sin_port = htons(wire::PortMapper::Port);
  ::inet_pton(AF_INET, address.c_str(), &place.sin_addr);
  return place;
}

} // namespace

Vxi11Search::Vxi11Search()
    : m_number(std::random_device()()),
      m_socket(::socket(AF_INET, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)),
      m_questionsLeft(m_socket.IsOpen() ? Questions : 0) {
  const int on = 1;
  ::setsockopt(m_socket.Get(), SOL_SOCKET, SO_BROADCAST, &on, sizeof on);
  Ask();
}

void Vxi11Search::Ask() {
  const auto now = std::chrono::steady_clock::now();
  if (m_questionsLeft == 0 || now < m_nextQuestion) return;
  --m_questionsLeft;
  m_nextQuestion = now + BetweenQuestions;
  const std::string question = CoreChannelQuestion(m_number);
  for (const system::NetworkInterface& interface : system::NetworkInterfaces()) {
    if (interface.Broadcast.empty()) continue;
    const sockaddr_in place = PortMapperAt(interface.Broadcast);
    // What a network does not take is asked again, or has no instruments.
    [[maybe_unused]] const auto sent = ::sendto(m_socket.Get(), question.data(), question.size(), MSG_NOSIGNAL,
                                                reinterpret_cast<const sockaddr*>(&place), sizeof place);
  }
}

std::vector<FoundInstrument> Vxi11Search::Take() {
  Ask();
  std::vector<FoundInstrument> instruments;
  std::array<char, LongestAnswer> bytes{};
  for (int i = 0; i < MostAnswers; ++i) {
    sockaddr_in sender{};
    socklen_t senderSize = sizeof sender;
    const auto size =
        ::recvfrom(m_socket.Get(), bytes.data(), bytes.size(), 0, reinterpret_cast<sockaddr*>(&sender), &senderSize);
    if (size < 0) break;
    if (!TellsOfCoreChannel({bytes.data(), static_cast<std::size_t>(size)}, m_number)) continue;
    std::array<char, INET_ADDRSTRLEN> address{};
    ::inet_ntop(AF_INET, &sender.sin_addr, address.data(), address.size());
    auto instrument = ListedInstrument("TCPIP0::" + std::string(address.data()) + "::inst0::INSTR", {});
    if (instrument) instruments.push_back(std::move(*instrument));
  }
  return instruments;
}

} // namespace portico::discovery
