#include "benchmarks/OneCore.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <system_error>

#include <sched.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace portico {

void KeepToOneCore() {
  cpu_set_t one;
  CPU_ZERO(&one);
  CPU_SET(0, &one);
  if (sched_setaffinity(0, sizeof one, &one) != 0) { // children inherit it
    throw std::system_error(errno, std::generic_category(), "sched_setaffinity");
  }
}

ServingProcess::ServingProcess(const std::function<void()>& serve) : m_process(fork()) {
  if (m_process < 0) throw std::system_error(errno, std::generic_category(), "fork");
  if (m_process > 0) return;
  serve();
  _exit(0);
}

ServingProcess::~ServingProcess() {
  kill(m_process, SIGTERM);
  waitpid(m_process, nullptr, 0);
}

int Argument(int argc, char** argv, int index, int otherwise) {
  return index < argc ? std::max(1, std::atoi(argv[index])) : otherwise;
}

} // namespace portico
