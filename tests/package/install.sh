#!/usr/bin/env bash
# install.sh CHECKOUT KBD-SHOW RELEASE — the packages of build/packages in a clean Debian: they install
# with what they name as their dependencies and nothing more, start, type into a terminal, and leave
# nothing behind. Needs root or sudo.
set -euo pipefail
checkout=$1 show=$2 release=$3
if [ "$(id -u)" -ne 0 ]; then
  exec sudo bash "$0" "$@"
fi
. "$checkout/cmake/CleanRoot.sh"

cache=$(clean_root_directory "$release")
root=$(mktemp -d)
trap 'rm -rf --one-file-system "$root"' EXIT

fail() {
  echo "FAIL: $*" >&2
  exit 1
}

here() {
  in_root "$root" "$cache/archives" "$@"
}

# apt and dpkg are heard only when they fail.
quietly() {
  here "$@" >"$root.log" 2>&1 && { rm -f "$root.log"; return 0; }
  cat "$root.log" >&2
  rm -f "$root.log"
  fail "$*"
}

# Every file of the root but those that dpkg and the tools keep their records in.
files() {
  (cd "$root" && find . -xdev \
    \( -path ./var/lib/dpkg -o -path ./var/lib/apt -o -path ./var/log -o -path ./tmp \
    -o -path ./run -o -path ./proc -o -path ./dev \) -prune -o -print | sort)
}

packages_are_unpacked() {
  quietly apt-get update
  local deb
  for deb in orvix-kbd-display orvix-kbd-switcher; do
    cp "$checkout/build/packages/${deb}"_[0-9]*.deb "$root/tmp/$deb.deb" || fail "run ./package first"
    dpkg-deb --field "$root/tmp/$deb.deb" Depends >>"$root/tmp/depends"
  done
  quietly xargs -a /tmp/depends -d '\n' apt-get satisfy -y --no-install-recommends
}

they_install() {
  quietly dpkg --install /tmp/orvix-kbd-display.deb /tmp/orvix-kbd-switcher.deb
}

# Whatever they leave is told by name.
they_go_without_a_trace() {
  quietly dpkg --purge orvix-kbd-display orvix-kbd-switcher
  diff <(printf '%s\n' "$before") <(files) >&2 || fail "what was there before, and what is left"
}

# Before any other package could bring a library or a plugin along.
the_program_starts_with_its_dependencies_alone() {
  local said status=0
  said=$(here orvix-kbd-display --tofocus 2>&1) || status=$?
  [ "$status" -eq 1 ] && [ "$said" = "orvix-kbd-display: cannot connect to the X server ''" ] \
    || fail "without an X server: status $status, '$said'"
  status=0
  said=$(here orvix-kbd-switcher 2>&1) || status=$?
  [ "$status" -eq 1 ] && [[ "$said" != "" ]] || fail "the switcher alone: status $status, '$said'"
}

# The rules of the X server's keyboards and the tool that reads them come as dependencies, too.
the_keyboard_tools_have_come_along() {
  local said
  said=$(here setxkbmap -print -rules evdev -model pc105 -layout de -display :99 2>&1 || true)
  [[ "$said" == *"annot open display"* ]] || fail "setxkbmap: '$said'"
  [ -s "$root/usr/share/X11/xkb/rules/evdev" ] || fail "no XKB rules"
}

its_manual_pages_are_found() {
  local page
  for page in orvix-kbd-display orvix-kbd-switcher; do
    [ -s "$root/usr/share/man/man1/$page.1.gz" ] || fail "no manual page of $page"
  done
}

the_desktop_knows_it() {
  local file share=$root/usr/share
  for file in applications/orvix-kbd-display.desktop icons/hicolor/scalable/apps/orvix-kbd-display.svg \
    metainfo/invalid.orvix.kbd_display.metainfo.xml; do
    [ -s "$share/$file" ] || fail "no $file"
  done
}

it_types_into_a_terminal() {
  quietly apt-get install -y --no-install-recommends xvfb openbox xterm libqt6test6
  install "$show" "$root/tmp/kbd-show"
  before=$(files)
  they_install
  mkdir -m 700 "$root/tmp/home"
  # A network of its own keeps the servers of other tests away.
  here unshare --net env HOME=/tmp/home XDG_RUNTIME_DIR=/tmp/home /tmp/kbd-show \
    --program /usr/bin/orvix-kbd-display --xkb-directory /usr/share/X11/xkb \
    --directory / --screenshot /tmp/typed.png -- --tofocus || fail "nothing is typed"
  cp "$root/tmp/typed.png" "$checkout/build/packages/"
}

fetch_base "$release"
cp -a "$cache/base/." "$root/"
packages_are_unpacked
before=$(files)
they_install
the_program_starts_with_its_dependencies_alone
the_keyboard_tools_have_come_along
its_manual_pages_are_found
the_desktop_knows_it
they_go_without_a_trace
it_types_into_a_terminal
they_go_without_a_trace
