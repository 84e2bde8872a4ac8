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
write src/platform/Bare.cpp '#include "Clean.h"\n'
sees "an include without a folder" src/platform/Bare.cpp
write src/novelty/New.cpp '#include "framework/Base.h"\n'
sees "a folder that nobody knows" src/novelty/New.cpp
write src/platform/novelty/New.cpp '#include "framework/Base.h"\n'
sees "a room that nobody knows" src/platform/novelty/New.cpp
write src/platform/Lost.cpp '#include "nowhere/Lost.h"\n'
sees "an include of an unknown folder" src/platform/Lost.cpp
write src/platform/System.cpp '#include <sys/types.h>\n#include "platform/Clean.h"\n#include "framework/Base.h"\n'
passes "system headers, the own folder and a lower one"

printf 'framework:\nplatform: framework\ninstructions: framework\nviews: platform framework\n' > "$tree/layers.txt"
write src/views/View.cpp '#include "platform/Clean.h"\n'
sees "a link that nobody uses" src/views/View.cpp

printf 'framework/errors:\nframework/text:\nplatform: framework\ninstructions: framework/text\n' > "$tree/layers.txt"
rm -r "$tree"/src/{framework,platform,instructions}/*
write src/platform/User.cpp '#include "framework/errors/A.h"\n#include "framework/text/A.h"\n'
write src/instructions/User.cpp '#include "framework/text/A.h"\n'
passes "rooms by their house and by their name"
write src/instructions/Other.cpp '#include "framework/errors/A.h"\n'
sees "a room beside the one that is linked" src/instructions/Other.cpp
write src/framework/text/Next.cpp '#include "framework/errors/A.h"\n'
sees "an include of another room" src/framework/text/Next.cpp

rm -r "$tree/src" && mkdir "$tree/src"
write src/empty.txt ''
sees "a tree without sources" src/empty.txt
