#include "framework/shared/Application.h"

namespace portico {

String ApplicationVersion() { return FromAscii(PORTICO_VERSION); }

} // namespace portico
