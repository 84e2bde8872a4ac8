#!/usr/bin/env bash
# The portability check sees each kind of system header.
set -u
check=portability
. "$(dirname "$0")/faults.sh"

passes "a clean tree"
for header in unistd.h sys/socket.h poll.h netdb.h fcntl.h netinet/in.h arpa/inet.h termios.h signal.h pthread.h; do
  write src/platform/Call.cpp "#include <$header>\n"
  sees "$header in a source" src/platform/Call.cpp
done
write src/platform/Call_posix.h '#include <unistd.h>\n'
sees "a header, whatever its name" src/platform/Call_posix.h
write src/platform/Call.cpp '  #  include  <poll.h>\n'
sees "blanks around the word" src/platform/Call.cpp
write src/platform/Call_posix.cpp '#include <unistd.h>\n#include <sys/socket.h>\n'
write src/platform/Standard.cpp '#include <csignal>\n#include <regex>\n// #include <unistd.h>\n'
passes "a _posix.cpp file, and headers of the language"
