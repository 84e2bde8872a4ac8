#include "terminal/console/StandardStreams.h"

#include <array>

#include <fcntl.h>
#include <unistd.h>

namespace portico::terminal {

void HoldClosedStandardStreams() {
  for (const int stream : std::array{STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    // Opened for the wrong direction, so that its use still fails. The lowest free number is the stream's own.
    if (fcntl(stream, F_GETFD) < 0) open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

bool IsProgressWelcome() { return isatty(STDERR_FILENO) == 1 && !IsOutputShown(); }

bool IsOutputShown() { return isatty(STDOUT_FILENO) == 1; }

} // namespace portico::terminal
