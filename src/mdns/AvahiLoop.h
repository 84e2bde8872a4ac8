#pragma once

#include "mdns/AvahiLibrary.h"
#include "system/Cancellation.h"

#include <exception>
#include <functional>
#include <memory>

namespace portico::mdns {

/// A connection to avahi's daemon and the loop that drives it, all on one thread. Its calls may be held up by the
/// message bus.
class AvahiLoop {
public:
  using StateHandler = std::function<void(AvahiClient&, AvahiClientState)>;

  /// Library and cancellation must outlive the loop. Throws `std::bad_alloc`.
  AvahiLoop(const AvahiLibrary& avahi, const system::Cancellation& cancellation);
  AvahiLoop(const AvahiLoop&) = delete;
  AvahiLoop& operator=(const AvahiLoop&) = delete;

  /// Answers 0 or avahi's error. What the daemon does is told to the handler from here on, for the first time before
  /// this returns.
  int Connect(AvahiClientFlags flags, StateHandler onState);
  /// Returns when it was cancelled, with 0, or when the connection has failed or nothing can be waited for, with
  /// avahi's error. Throws what a handler has thrown.
  int Run();

  const AvahiLibrary& Avahi() const { return m_avahi; }

  /// Runs what the library has called back for: nothing may be thrown through it.
  template <class Action>
  void Called(Action&& action) noexcept {
    try {
      action();
    } catch (...) {
      m_thrown = std::current_exception();
      Quit();
    }
  }

private:
  static void OnOrder(AvahiWatch* watch, int descriptor, AvahiWatchEvent event, void* self);
  static void OnState(AvahiClient* client, AvahiClientState state, void* self);
  void Quit() { m_avahi.SimplePollQuit(m_poll.get()); }

  const AvahiLibrary& m_avahi;
  StateHandler m_onState;
  std::exception_ptr m_thrown;
  int m_error = 0;
  std::unique_ptr<AvahiSimplePoll, decltype(&::avahi_simple_poll_free)> m_poll;
  std::unique_ptr<AvahiClient, decltype(&::avahi_client_free)> m_client; // goes before its loop
};

} // namespace portico::mdns
