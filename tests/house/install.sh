#!/usr/bin/env bash
# install.sh CMAKE BUILD-DIRECTORY PREFIX — "cmake --install" puts everything where the program looks
# for it; what it does not look for goes below the prefix.
cmake=$1 build=$2 prefix=$3
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
status=0

DESTDIR=$root "$cmake" --install "$build" >"$root/log" || {
  cat "$root/log"
  exit 1
}
for file in "$prefix"/bin/orvix-kbd-display "$prefix"/bin/orvix-kbd-switcher \
  /usr/share/X11/xkb/geometry/pc-arvane /usr/share/orvix-keyboard-layout/kbdSpecs.tab \
  /usr/share/orvix-keyboard-layout/icons/de.png \
  "$prefix"/share/orvix-i18n/de_DE/orvix-keyboard-layout_de_DE.qm \
  "$prefix"/share/applications/orvix-kbd-display.desktop \
  "$prefix"/share/man/man1/orvix-kbd-display.1; do
  [ -s "$root$file" ] || {
    echo "$file is not installed"
    status=1
  }
done
exit $status
