#!/usr/bin/env bash
# The check of headers sees what could hide that one does not stand alone.
set -u
check=headers
. "$(dirname "$0")/faults.sh"

write src/framework/Base.h '#pragma once\n#include <cstdint>\n'
write src/framework/Base.cpp '// What it is.\n\n#include "framework/Base.h"\n\n#include <string>\n'
write src/platform/room/Seam.h '#pragma once\n'
write src/platform/room/Seam_posix.cpp '#include "platform/room/Seam.h"\n#include <unistd.h>\n'
passes "a clean tree"
write src/framework/Other.h '#include <cstdint>\n'
sees "a header that must not be included twice" src/framework/Other.h
write src/framework/Other.h '#include <cstdint>\n#pragma once\n'
sees "a guard behind something else" src/framework/Other.h
write src/framework/Other.h '#ifndef OTHER_H\n#define OTHER_H\n#endif\n'
write src/framework/Other.cpp '#include <string>\n#include "framework/Other.h"\n'
sees "something before the own header" src/framework/Other.cpp
write src/framework/Other.cpp ' # include <string>\n#include "framework/Other.h"\n'
sees "blanks around the word" src/framework/Other.cpp
write src/framework/Other.cpp '#include "framework/Base.h"\n'
sees "a source without its own header" src/framework/Other.cpp
write src/platform/room/Seam_posix.cpp '#include <unistd.h>\n#include "platform/room/Seam.h"\n'
sees "a source for one system" src/platform/room/Seam_posix.cpp
passes "a header without a source"
