# Sourced: freshly installed Debians in directories of their own. Needs root.
#
# They are kept in the cache directory, one of each release:
#   base      the smallest Debian, as it was installed
#   tree      what run_in_release runs in, with the packages that it has installed and the source
#   archives  apt's store of packages

# clean_root_directory RELEASE
clean_root_directory() {
  echo "${XDG_CACHE_HOME:-$HOME/.cache}/orvix-kbd-display/$1"
}

own_release() {
  (. /etc/os-release && echo "$VERSION_CODENAME")
}

# require_clean_root RELEASE — ends the command where there can be none.
require_clean_root() {
  case $1 in
    bookworm | trixie) ;;
    *)
      echo "$0: no release '$1'; there are bookworm and trixie" >&2
      exit 2
      ;;
  esac
  if [ "$(id -u)" -ne 0 ]; then
    echo "$0: only root can set up a clean Debian; run it with sudo" >&2
    exit 1
  fi
}

# The mirror that apt uses, for whatever release.
debian_mirror() {
  local mirror
  mirror=$(apt-get indextargets --format '$(REPO_URI)' \
    'Identifier: Packages' "Codename: $(own_release)" 'Component: main' | head -n 1)
  echo "${mirror:-http://deb.debian.org/debian}"
}

# fetch_base RELEASE — installs the smallest Debian of the release. What is there already is kept:
# it takes a minute.
fetch_base() {
  local directory base
  directory=$(clean_root_directory "$1")
  base=$directory/base
  mkdir -p "$directory/archives/partial"
  [ -e "$base/etc/debian_version" ] && return 0
  rm -rf --one-file-system "$base" "$base.part"
  mkdir -p "$base.part"
  if ! debootstrap --variant=minbase "$1" "$base.part" "$(debian_mirror)" >"$base.log" 2>&1; then
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

# run_in_release RELEASE COMMAND… — runs the command in a fresh copy of the checkout, the current
# directory, in a Debian of that release. What it has installed and built there before is kept; one
# call at a time uses it.
run_in_release() {
  local directory work
  directory=$(clean_root_directory "$1")
  work=$directory/tree
  fetch_base "$1"
  shift
  (
    flock 9
    if [ ! -e "$work" ]; then
      rm -rf --one-file-system "$work.part"
      cp -a "$directory/base" "$work.part"
      mv "$work.part" "$work"
    fi
    cp -L /etc/resolv.conf "$work/etc/"
    rm -rf "$work/src.new"
    mkdir -p "$work/src.new"
    copy_source "$work/src.new"
    # What has changed gets the date of today: what was built from another checkout may be younger
    # than the files of this one.
    rsync -rlp --checksum --delete --exclude=/build "$work/src.new/" "$work/src/"
    in_root "$work" "$directory/archives" env --chdir=/src "$@" 9>&-
  ) 9>"$directory/lock"
}
