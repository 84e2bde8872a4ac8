#include "terminal/console/FileSizeLimit.h"

#include <csignal>

namespace portico::terminal {

void SurviveFileSizeLimit() { std::signal(SIGXFSZ, SIG_IGN); }

} // namespace portico::terminal
