#!/usr/bin/env bash
# check_package.sh CPACK BUILD: makes the Debian package of the build, which brings the library that is loaded, and
# Debian's checker finds no more in it than the mail host that the project does not have.
set -u
cpack=$1 build=$2

place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
"$cpack" --config "$build/CPackConfig.cmake" -B "$place" > "$place/log" 2>&1 || { cat "$place/log" >&2; exit 1; }
packages=("$place"/*.deb)
recommended=$(dpkg-deb --field "${packages[0]}" Recommends)
[[ $recommended == "avahi-daemon, libavahi-client3" ]] || { echo "it recommends \"$recommended\"" >&2; exit 1; }
lintian --allow-root --suppress-tags bogus-mail-host-in-debian-changelog "${packages[@]}" > "$place/found"
if [[ $(< "$place/found") != "E: portico: bogus-mail-host Maintainer portico@localhost" ]]; then
  cat "$place/found" >&2
  exit 1
fi
