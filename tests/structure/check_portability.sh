#!/usr/bin/env bash
# check_portability.sh ROOT: the operating system's headers stand only in *_posix.cpp files of ROOT/src.
set -u
cd "$1" || exit 2

plain='aio|dirent|dlfcn|fcntl|fnmatch|ftw|getopt|glob|grp|ifaddrs|langinfo|netdb|poll|pthread|pty|pwd|regex|sched|semaphore|signal|spawn|strings|syslog|termios|unistd|utime|wordexp'
folders='sys|net|netinet|arpa|linux|asm|bits|rpc'
pattern="^[[:space:]]*#[[:space:]]*include[[:space:]]*[<\"](($plain)\.h|($folders)/[^>\"]*)[>\"]"

if [[ -z $(find src -name '*.h' -o -name '*.cpp') ]]; then
  echo "no source was found in $1/src" >&2
  exit 1
fi
if grep -rnE "$pattern" src --include='*.h' --include='*.cpp' --exclude='*_posix.cpp' >&2; then
  echo "these lines belong into files whose name ends in _posix.cpp" >&2
  exit 1
fi
