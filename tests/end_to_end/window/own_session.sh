#!/usr/bin/env bash
# own_session.sh COMMAND...: runs it on a message bus of its own. The accessibility bus keeps its socket in the runtime
# folder, or else in the cache, so tests that run side by side must not share them.
set -euo pipefail
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
XDG_RUNTIME_DIR="$folder" XDG_CACHE_HOME="$folder" dbus-run-session -- "$@"
