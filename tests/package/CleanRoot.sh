# Sourced: a freshly installed Debian in a directory of its own. Needs root.

# fetch_base DIRECTORY — installs the smallest Debian of this system's release, from the mirror
# that apt uses. What is there already is kept: it takes a minute.
fetch_base() {
  local base=$1 codename mirror
  [ -e "$base/etc/debian_version" ] && return 0
  codename=$(. /etc/os-release && echo "$VERSION_CODENAME")
  mirror=$(apt-get indextargets --format '$(REPO_URI)' \
    'Identifier: Packages' "Codename: $codename" 'Component: main' | head -n 1)
  rm -rf "$base" "$base.part"
  mkdir -p "$base.part"
  if ! debootstrap --variant=minbase "$codename" "$base.part" "$mirror" >"$base.log" 2>&1; then
    tail -n 20 "$base.log" >&2
    return 1
  fi
  # No service of a package starts.
  printf '#!/bin/sh\nexit 101\n' >"$base.part/usr/sbin/policy-rc.d"
  chmod +x "$base.part/usr/sbin/policy-rc.d"
  mv "$base.part" "$base"
}

# in_root ROOT ARCHIVES COMMAND… — runs the command in ROOT, with /proc, /dev and apt's store of
# packages kept in ARCHIVES. The mounts are seen by the command only and go with it, as does
# everything that it has started.
in_root() {
  local root=$1 archives=$2
  shift 2
  unshare --mount --pid --fork --kill-child bash -c '
    set -e
    root=$1 archives=$2
    shift 2
    mount -t proc proc "$root/proc"
    mount --rbind /dev "$root/dev"
    mount --bind "$archives" "$root/var/cache/apt/archives"
    exec chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root \
      LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"
  ' in_root "$root" "$archives" "$@"
}
