#!/usr/bin/env bash
# own_network.sh COMMAND...: runs it on a network of its own, an Ethernet on which this machine is 192.0.2.1, with a
# system bus and avahi's daemon of its own. Nothing outside sees any of it. /etc/avahi/services is empty, and can be
# written to; instrument1.local to instrument9.local are hosts for what is announced there, 192.0.2.11 to 192.0.2.19.
# AVAHI_DAEMON is what starts the daemon again.
set -euo pipefail

if [[ ${1-} != --inside ]]; then
  # Where users may not, as behind a chroot, the superuser still may.
  own=(unshare --user --map-root-user --net --mount)
  "${own[@]}" true 2> /dev/null || own=(unshare --net --mount)
  if ! "${own[@]}" true; then
    echo "this machine lets no user make a network of his own, which this test needs" >&2
    exit 1
  fi
  exec "${own[@]}" "$BASH" "$0" --inside "$@"
fi
shift

PATH+=:/usr/sbin # where daemons are, and users do not look
ip link set lo up
ip link add wire type veth peer name far-end
ip address add 192.0.2.1/24 broadcast 192.0.2.255 dev wire
ip link set wire up
ip link set far-end up

mount -t tmpfs tmpfs /run
mkdir /run/dbus /run/services
mount --bind /run/services /etc/avahi/services
printf '192.0.2.1%s instrument%s.local\n' {1,2,3,4,5,6,7,8,9}{,} > /run/avahi.hosts
mount --bind /run/avahi.hosts /etc/avahi/hosts
# Daemons want to be users of their own, but here is only one.
printf '%s\n' root:x:0:0::/root:/bin/sh {avahi,_rpc}:x:0:0::/:/bin/false > /run/passwd
printf '%s\n' root:x:0: avahi:x:0: > /run/group
mount --bind /run/passwd /etc/passwd
mount --bind /run/group /etc/group
printf '%s\n' '[server]' host-name=bench use-ipv6=no > /run/avahi.conf
cat > /run/bus.conf << 'END'
<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <listen>unix:path=/run/dbus/system_bus_socket</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*"/>
    <allow receive_sender="*"/>
    <allow own="*"/>
    <allow user="*"/>
  </policy>
</busconfig>
END
export XDG_CONFIG_HOME=/run/config # nobody has opened anything
export DBUS_SYSTEM_BUS_ADDRESS=unix:path=/run/dbus/system_bus_socket

# started SAYS COMMAND...: starts it and waits until it says so. It ends with this script.
started() {
  local says=$1 line said= output
  shift
  exec {output}< <(exec setpriv --pdeathsig TERM "$@" 2>&1)
  while read -r line <&"$output"; do
    said+=$line$'\n'
    [[ $line == *"$says"* ]] || continue
    cat <&"$output" > /dev/null &
    return
  done
  echo "$said$1 has not started" >&2
  exit 1
}
started unix:path dbus-daemon --config-file=/run/bus.conf --nofork --print-address
export AVAHI_DAEMON="avahi-daemon --file=/run/avahi.conf --no-drop-root --no-chroot --no-rlimits"
started "startup complete" $AVAHI_DAEMON

"$@"
