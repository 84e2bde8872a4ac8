#include "mdns/ServiceBrowser.h"

#include "mdns/AvahiLoop.h"

#include <array>
#include <cstddef>
#include <set>

namespace portico::mdns {
namespace {

/// Services of a network that are asked for their place; the daemon allows a client some thousand objects.
constexpr std::size_t MostResolvers = 1000;

std::vector<std::string> Entries(const AvahiStringList* text) {
  std::vector<std::string> entries;
  for (; text != nullptr; text = text->next) {
    entries.emplace_back(reinterpret_cast<const char*>(text->text), text->size);
  }
  return entries;
}

class Browser {
public:
  Browser(const std::vector<std::string>& types, IServiceListener& listener, AvahiLoop& loop)
      : m_types(types), m_listener(listener), m_loop(loop), m_avahi(loop.Avahi()) {}

  void OnState(AvahiClient& client, AvahiClientState state) {
    if (state != AVAHI_CLIENT_S_RUNNING || m_client != nullptr) return;
    m_client = &client;
    m_unsettled = m_types.size();
    for (const std::string& type : m_types) {
      if (m_avahi.ServiceBrowserNew(&client, AVAHI_IF_UNSPEC, AVAHI_PROTO_INET, type.c_str(), nullptr,
                                    AvahiLookupFlags(0), &OnBrowser, this) == nullptr) {
        --m_unsettled;
      }
    }
  }

private:
  static void OnBrowser(AvahiServiceBrowser*, AvahiIfIndex interface, AvahiProtocol protocol, AvahiBrowserEvent event,
                        const char* name, const char* type, const char* domain, AvahiLookupResultFlags, void* self) {
    auto& browser = *static_cast<Browser*>(self);
    if (event == AVAHI_BROWSER_NEW) {
      browser.m_loop.Called([&] { browser.Resolve(interface, protocol, name, type, domain); });
    }
    if (event != AVAHI_BROWSER_ALL_FOR_NOW && event != AVAHI_BROWSER_FAILURE) return;
    if (browser.m_unsettled > 0) --browser.m_unsettled;
    browser.m_loop.Called([&] { browser.TellIfSettled(); });
  }

  static void OnResolver(AvahiServiceResolver* resolver, AvahiIfIndex, AvahiProtocol, AvahiResolverEvent event,
                         const char* name, const char* type, const char*, const char*, const AvahiAddress* address,
                         std::uint16_t port, AvahiStringList* text, AvahiLookupResultFlags, void* self) {
    auto& browser = *static_cast<Browser*>(self);
    browser.m_loop.Called([&] {
      browser.m_unresolved.erase(resolver);
      if (event == AVAHI_RESOLVER_FOUND && address != nullptr) {
        std::array<char, AVAHI_ADDRESS_STR_MAX> figures{};
        browser.m_avahi.AddressSnprint(figures.data(), figures.size(), address);
        browser.m_listener.Found({type, name, figures.data(), port, Entries(text)});
      }
      browser.TellIfSettled();
    });
  }

  /// What is known of a service may be out of date, and so its resolver goes on listening.
  void Resolve(AvahiIfIndex interface, AvahiProtocol protocol, const char* name, const char* type, const char* domain) {
    if (m_resolvers >= MostResolvers) return;
    auto* const resolver = m_avahi.ServiceResolverNew(m_client, interface, protocol, name, type, domain,
                                                      AVAHI_PROTO_INET, AvahiLookupFlags(0), &OnResolver, this);
    if (resolver == nullptr) return;
    ++m_resolvers;
    m_unresolved.insert(resolver);
  }

  void TellIfSettled() {
    if (m_unsettled == 0 && m_unresolved.empty()) m_listener.Settled();
  }

  const std::vector<std::string>& m_types;
  IServiceListener& m_listener;
  AvahiLoop& m_loop;
  const AvahiLibrary& m_avahi;
  AvahiClient* m_client = nullptr;
  std::size_t m_unsettled = 0; // types of which not all is known yet
  std::size_t m_resolvers = 0;
  std::set<AvahiServiceResolver*> m_unresolved; // that have not answered yet
};

} // namespace

void BrowseServices(const std::vector<std::string>& types, IServiceListener& listener,
                    const system::Cancellation& cancellation) {
  const AvahiLibrary* const avahi = AvahiLibrary::Load();
  if (avahi == nullptr) return;
  AvahiLoop loop(*avahi, cancellation);
  Browser browser(types, listener, loop);
  const auto onState = [&browser](AvahiClient& client, AvahiClientState state) { browser.OnState(client, state); };
  if (loop.Connect(AvahiClientFlags(0), onState) == 0) loop.Run();
}

} // namespace portico::mdns
