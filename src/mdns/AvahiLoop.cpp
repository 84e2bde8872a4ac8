#include "mdns/AvahiLoop.h"

#include <new>
#include <utility>

namespace portico::mdns {

AvahiLoop::AvahiLoop(const AvahiLibrary& avahi, const system::Cancellation& cancellation)
    : m_avahi(avahi), m_poll(avahi.SimplePollNew(), avahi.SimplePollFree), m_client(nullptr, avahi.ClientFree) {
  if (!m_poll) throw std::bad_alloc();
  const AvahiPoll* const poll = avahi.SimplePollGet(m_poll.get());
  if (poll->watch_new(poll, cancellation.Descriptor(), AVAHI_WATCH_IN, &OnOrder, this) == nullptr) {
    throw std::bad_alloc();
  }
}

int AvahiLoop::Connect(AvahiClientFlags flags, StateHandler onState) {
  m_onState = std::move(onState);
  int error = 0;
  m_client.reset(m_avahi.ClientNew(m_avahi.SimplePollGet(m_poll.get()), flags, &OnState, this, &error));
  return m_client ? 0 : error;
}

int AvahiLoop::Run() {
  int ended = 0;
  while (m_error == 0 && ended == 0) ended = m_avahi.SimplePollIterate(m_poll.get(), -1);
  if (m_thrown) std::rethrow_exception(std::exchange(m_thrown, nullptr));
  return ended < 0 ? AVAHI_ERR_OS : m_error;
}

void AvahiLoop::OnOrder(AvahiWatch*, int, AvahiWatchEvent, void* self) { static_cast<AvahiLoop*>(self)->Quit(); }

void AvahiLoop::OnState(AvahiClient* client, AvahiClientState state, void* self) {
  auto& loop = *static_cast<AvahiLoop*>(self);
  if (state == AVAHI_CLIENT_FAILURE) loop.m_error = loop.m_avahi.ClientErrno(client);
  loop.Called([&] { loop.m_onState(*client, state); });
}

} // namespace portico::mdns
