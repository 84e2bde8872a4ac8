#pragma once

#include <functional>
#include <sys/types.h>
#include <vector>

namespace portico {

/// This process and its children have one core from now on. Failures of the system are std::system_error.
void KeepToOneCore();

/// Serves in a process of its own, for as long as the object lives.
class ServingProcess {
public:
  explicit ServingProcess(const std::function<void()>& serve);
  ~ServingProcess();
  ServingProcess(const ServingProcess&) = delete;
  ServingProcess& operator=(const ServingProcess&) = delete;

private:
  const pid_t m_process;
};

/// A number of the command line, at least 1.
int Argument(int argc, char** argv, int index, int otherwise);

} // namespace portico
