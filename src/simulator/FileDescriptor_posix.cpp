#include "simulator/FileDescriptor.h"

#include <unistd.h>

namespace portico::simulator {

FileDescriptor::~FileDescriptor() {
  if (IsOpen()) close(descriptor_);
}

} // namespace portico::simulator
