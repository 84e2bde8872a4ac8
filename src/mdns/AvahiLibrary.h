#pragma once

#include <avahi-client/client.h>
#include <avahi-client/lookup.h>
#include <avahi-client/publish.h>
#include <avahi-common/alternative.h>
#include <avahi-common/error.h>
#include <avahi-common/malloc.h>
#include <avahi-common/simple-watch.h>
#include <avahi-common/strlst.h>

namespace portico::mdns {

/// The functions of avahi's client library that are used here, under their own names without the prefix. The program is
/// not linked with it: it starts and works where the library is missing.
struct AvahiLibrary {
  /// Loads it when it is first asked for, for as long as the program runs; null where it is missing.
  static const AvahiLibrary* Load();

  decltype(&::avahi_simple_poll_new) SimplePollNew = nullptr;
  decltype(&::avahi_simple_poll_free) SimplePollFree = nullptr;
  decltype(&::avahi_simple_poll_get) SimplePollGet = nullptr;
  decltype(&::avahi_simple_poll_iterate) SimplePollIterate = nullptr;
  decltype(&::avahi_simple_poll_quit) SimplePollQuit = nullptr;
  decltype(&::avahi_client_new) ClientNew = nullptr;
  decltype(&::avahi_client_free) ClientFree = nullptr;
  decltype(&::avahi_client_errno) ClientErrno = nullptr;
  decltype(&::avahi_strerror) StrError = nullptr;
  decltype(&::avahi_service_browser_new) ServiceBrowserNew = nullptr;
  decltype(&::avahi_service_resolver_new) ServiceResolverNew = nullptr;
  decltype(&::avahi_address_snprint) AddressSnprint = nullptr;
  decltype(&::avahi_entry_group_new) EntryGroupNew = nullptr;
  decltype(&::avahi_entry_group_reset) EntryGroupReset = nullptr;
  decltype(&::avahi_entry_group_commit) EntryGroupCommit = nullptr;
  decltype(&::avahi_entry_group_add_service_strlst) EntryGroupAddServiceStrlst = nullptr;
  decltype(&::avahi_alternative_service_name) AlternativeServiceName = nullptr;
  decltype(&::avahi_string_list_add) StringListAdd = nullptr;
  decltype(&::avahi_string_list_free) StringListFree = nullptr;
  decltype(&::avahi_free) Free = nullptr;
};

} // namespace portico::mdns
