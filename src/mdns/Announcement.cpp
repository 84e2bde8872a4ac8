#include "mdns/Announcement.h"

#include "mdns/AvahiLoop.h"
#include "system/NetworkInterfaces.h"

#include <algorithm>
#include <memory>
#include <new>
#include <utility>

namespace portico::mdns {
namespace {

AvahiIfIndex InterfaceOf(const std::string& address) {
  const auto interfaces = system::NetworkInterfaces();
  const auto found = std::find_if(interfaces.begin(), interfaces.end(),
                                  [&](const auto& interface) { return interface.Address == address; });
  return found != interfaces.end() ? static_cast<AvahiIfIndex>(found->Index) : AVAHI_IF_UNSPEC;
}

/// One connection's announcement.
class Publisher {
public:
  Publisher(const Announcement::Content& content, const Announcement::News& news, AvahiLoop& loop)
      : m_content(content), m_news(news), m_loop(loop), m_avahi(loop.Avahi()), m_name(content.Name) {}

  void OnState(AvahiClient& client, AvahiClientState state) {
    switch (state) {
    case AVAHI_CLIENT_S_RUNNING:
      return Publish(client);
    case AVAHI_CLIENT_S_COLLISION:
    case AVAHI_CLIENT_S_REGISTERING: // the host's name changes
      if (m_group != nullptr) m_avahi.EntryGroupReset(m_group);
      return;
    case AVAHI_CLIENT_CONNECTING:
      return m_news.Failed("the avahi daemon is not running");
    default:
      m_group = nullptr; // goes with the client
    }
  }

private:
  static void OnGroup(AvahiEntryGroup*, AvahiEntryGroupState state, void* self) {
    auto& publisher = *static_cast<Publisher*>(self);
    publisher.m_loop.Called([&] {
      if (state == AVAHI_ENTRY_GROUP_ESTABLISHED) publisher.m_news.Announced(publisher.m_name);
      if (state != AVAHI_ENTRY_GROUP_COLLISION) return;
      publisher.TakeAnotherName();
      publisher.Commit();
    });
  }

  void Publish(AvahiClient& client) {
    if (m_group == nullptr) m_group = m_avahi.EntryGroupNew(&client, &OnGroup, this);
    if (m_group == nullptr) return m_news.Failed(m_avahi.StrError(m_avahi.ClientErrno(&client)));
    Commit();
  }

  void Commit() {
    int error = Add();
    while (error == AVAHI_ERR_COLLISION) {
      TakeAnotherName();
      error = Add();
    }
    if (error == 0) error = m_avahi.EntryGroupCommit(m_group);
    if (error != 0) m_news.Failed(m_avahi.StrError(error));
  }

  void TakeAnotherName() {
    const std::unique_ptr<char, decltype(&::avahi_free)> other(m_avahi.AlternativeServiceName(m_name.c_str()),
                                                               m_avahi.Free);
    if (!other) throw std::bad_alloc();
    m_name = other.get();
  }

  int Add() {
    m_avahi.EntryGroupReset(m_group);
    std::unique_ptr<AvahiStringList, decltype(&::avahi_string_list_free)> text(nullptr, m_avahi.StringListFree);
    for (const std::string& entry : m_content.Text) {
      text.reset(m_avahi.StringListAdd(text.release(), entry.c_str()));
    }
    for (const AnnouncedService& service : m_content.Services) {
      const int error = m_avahi.EntryGroupAddServiceStrlst(m_group, InterfaceOf(service.Address), AVAHI_PROTO_INET,
                                                           AvahiPublishFlags(0), m_name.c_str(), service.Type.c_str(),
                                                           nullptr, nullptr, service.Port, text.get());
      if (error != 0) return error;
    }
    return 0;
  }

  const Announcement::Content& m_content;
  const Announcement::News& m_news;
  AvahiLoop& m_loop;
  const AvahiLibrary& m_avahi;
  std::string m_name;
  AvahiEntryGroup* m_group = nullptr;
};

void Announce(const Announcement::Content& content, const Announcement::News& news,
              const system::Cancellation& cancellation) {
  const AvahiLibrary* const avahi = AvahiLibrary::Load();
  if (avahi == nullptr) return news.Failed("avahi's library libavahi-client.so.3 is not installed");
  while (!cancellation.Requested()) {
    AvahiLoop loop(*avahi, cancellation);
    Publisher publisher(content, news, loop);
    const auto onState = [&](AvahiClient& client, AvahiClientState state) { publisher.OnState(client, state); };
    int error = loop.Connect(AVAHI_CLIENT_NO_FAIL, onState);
    if (error == 0) error = loop.Run();
    if (error != 0 && error != AVAHI_ERR_DISCONNECTED) {
      return news.Failed(std::string("the avahi daemon cannot be reached: ") + avahi->StrError(error));
    }
  }
}

} // namespace

Announcement::Announcement(Content content, News news)
    : m_task([content = std::move(content), news = std::move(news)](const system::Cancellation& cancellation) {
        Announce(content, news, cancellation);
      }) {}

} // namespace portico::mdns
