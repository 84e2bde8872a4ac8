#include "system/FileSizeLimit.h"

#include <csignal>

namespace portico::system {

void SurviveFileSizeLimit() { std::signal(SIGXFSZ, SIG_IGN); }

} // namespace portico::system
