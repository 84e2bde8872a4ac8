#!/usr/bin/env bash
# The layers' check sees each kind of forbidden include.
set -u
check=layers
. "$(dirname "$0")/faults.sh"

passes "a clean tree"
write src/framework/Up.cpp '#include "platform/Clean.h"\n'
sees "an include of a higher layer" src/framework/Up.cpp
write src/framework/Angle.cpp '#  include <platform/Clean.h>\n'
sees "the same between angle brackets" src/framework/Angle.cpp
write src/instructions/Aside.h '#include "platform/Clean.h"\n'
sees "an include past the layer between" src/instructions/Aside.h
write src/ui/Window.cpp '#include "application/Startup.h"\n'
sees "an include of the roof" src/ui/Window.cpp
write src/platform/Bare.cpp '#include "Clean.h"\n'
sees "an include without a folder" src/platform/Bare.cpp
write src/novelty/New.cpp '#include "framework/Base.h"\n'
sees "a folder that nobody knows" src/novelty/New.cpp
write src/platform/Lost.cpp '#include "nowhere/Lost.h"\n'
sees "an include of an unknown folder" src/platform/Lost.cpp
write src/platform/System.cpp '#include <sys/types.h>\n#include "platform/Clean.h"\n#include "framework/Base.h"\n'
passes "system headers, the own folder and a lower one"
rm -r "$tree/src" && mkdir "$tree/src"
write src/empty.txt ''
sees "a tree without sources" src/empty.txt
