#!/usr/bin/env bash
# The namespace check sees a class in the namespace of another folder, and no namespace at all.
set -u
check=namespaces
. "$(dirname "$0")/faults.sh"

rm -r "$tree"/src/*
write src/framework/Base.h 'namespace portico {\n}\n'
write src/framework/Report.h 'namespace portico::HuntERR {\n}\n'
write src/qt/loop/Loop.h 'namespace portico {\nclass Lower;\n}\nnamespace portico::qt {\n}\n'
write src/drivers/driver.h 'extern "C" {\n}\n'
passes "each in the namespace of its folder"
write src/framework/Lost.h '#include <cstdint>\n'
sees "a header without a namespace" src/framework/Lost.h
write src/framework/Strange.h 'namespace portico::qt {\n}\n'
sees "a class of the contract in another folder's namespace" src/framework/Strange.h
write src/qt/loop/Bare.h 'namespace portico {\n}\n'
sees "a folder's class outside its namespace" src/qt/loop/Bare.h
write src/qt/loop/Room.h 'namespace portico::qt::loop {\n}\n'
sees "a room with a namespace of its own" src/qt/loop/Room.h
