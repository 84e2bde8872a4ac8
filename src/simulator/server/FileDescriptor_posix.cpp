#include "simulator/server/FileDescriptor.h"

#include <unistd.h>

namespace portico::simulator {

FileDescriptor::~FileDescriptor() {
  if (IsOpen()) close(m_descriptor);
}

} // namespace portico::simulator
