#include "system/FileDescriptor.h"

#include <unistd.h>

namespace portico::system {

FileDescriptor::~FileDescriptor() {
  if (IsOpen()) close(m_descriptor);
}

} // namespace portico::system
