#include "mdns/AvahiLibrary.h"

#include <dlfcn.h>
#include <optional>

namespace portico::mdns {
namespace {

std::optional<AvahiLibrary> Bind() {
  void* const library = ::dlopen("libavahi-client.so.3", RTLD_NOW | RTLD_LOCAL); // brings libavahi-common with it
  if (library == nullptr) return {};
  AvahiLibrary avahi;
  bool complete = true;
  const auto find = [&](auto& function, const char* name) {
    function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(::dlsym(library, name));
    complete = complete && function != nullptr;
  };
  find(avahi.SimplePollNew, "avahi_simple_poll_new");
  find(avahi.SimplePollFree, "avahi_simple_poll_free");
  find(avahi.SimplePollGet, "avahi_simple_poll_get");
  find(avahi.SimplePollIterate, "avahi_simple_poll_iterate");
  find(avahi.SimplePollQuit, "avahi_simple_poll_quit");
  find(avahi.ClientNew, "avahi_client_new");
  find(avahi.ClientFree, "avahi_client_free");
  find(avahi.ClientErrno, "avahi_client_errno");
  find(avahi.StrError, "avahi_strerror");
  find(avahi.ServiceBrowserNew, "avahi_service_browser_new");
  find(avahi.ServiceResolverNew, "avahi_service_resolver_new");
  find(avahi.AddressSnprint, "avahi_address_snprint");
  find(avahi.EntryGroupNew, "avahi_entry_group_new");
  find(avahi.EntryGroupReset, "avahi_entry_group_reset");
  find(avahi.EntryGroupCommit, "avahi_entry_group_commit");
  find(avahi.EntryGroupAddServiceStrlst, "avahi_entry_group_add_service_strlst");
  find(avahi.AlternativeServiceName, "avahi_alternative_service_name");
  find(avahi.StringListAdd, "avahi_string_list_add");
  find(avahi.StringListFree, "avahi_string_list_free");
  find(avahi.Free, "avahi_free");
  return complete ? std::optional(avahi) : std::nullopt;
}

} // namespace

const AvahiLibrary* AvahiLibrary::Load() {
  static const std::optional<AvahiLibrary> library = Bind();
  return library ? &*library : nullptr;
}

} // namespace portico::mdns
