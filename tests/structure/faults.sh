# For the tests of the checks: a small tree of sources, to be spoilt and mended again.

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
mkdir -p "$tree"/src/{framework,platform,instructions} "$tree"/tests
cp "$here/../../.clang-format" "$tree"
echo '#include "framework/Base.h"' | tee "$tree/src/platform/Clean.cpp" > "$tree/src/instructions/Clean.cpp"
echo '#include <cstdint>' > "$tree/src/framework/Base.h"

# write FILE TEXT: the file's only content, \n for a line end.
write() {
  mkdir -p "$(dirname "$tree/$1")"
  printf '%b' "$2" > "$tree/$1"
}

# write_lines FILE COUNT
write_lines() { write "$1" "$(printf '// line\\n%.0s' $(seq "$2"))"; }

# The layers of the tree; checks that ask for none take no notice.
printf 'framework:\nplatform: framework\ninstructions: framework\n' > "$tree/layers.txt"

run_check() { bash "$here/check_$check.sh" "$tree" "$tree/layers.txt" > /dev/null 2>&1; }

# passes WHAT: the check finds nothing wrong.
passes() {
  run_check
  local status=$?
  ((status == 77)) && exit 77
  ((status == 0)) && return
  echo "check_$check.sh complains although there is nothing wrong: $1" >&2
  exit 1
}

# sees WHAT FILE: the check complains; FILE is then removed.
sees() {
  if run_check; then
    echo "check_$check.sh does not see this: $1" >&2
    exit 1
  fi
  rm "$tree/$2"
}
