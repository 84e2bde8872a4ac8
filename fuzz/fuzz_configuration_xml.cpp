#include "configuration/CConfiguration.h"
#include "framework/errors/ErrorRecord.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using portico::CConfiguration;
using portico::Error;
using portico::String;

namespace {

/// The whole table as XML. Whatever a text has left in it, this must be XML again that changes nothing, but for
/// carriage returns: reading XML makes line feeds of them.
void CheckRoundTrip(CConfiguration& server) {
  const String all = server.Update(server.Retrieve(u"")->ResponseData())->ResponseData();
  if (server.Update(all)->ResponseData() != all) std::abort();
  if (server.Retrieve(all)->ResponseData() != all) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const String text = portico::FromCodePage({reinterpret_cast<const char*>(data), size});
  CConfiguration server;
  server.Initialize();
  server.ItemValue(u"Logging", u"On");
  try {
    server.Retrieve(text);
  } catch (const Error&) { // text that is not XML, or an item that does not exist
  }
  try {
    server.Update(text);
  } catch (const Error&) { // text that is not XML, or a parameter without a name
  }
  CheckRoundTrip(server);
  return 0;
}
