#!/usr/bin/env bash
# install.sh CMAKE BUILD-DIRECTORY — "cmake --install" puts everything where the program looks for it.
cmake=$1 build=$2
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
status=0

DESTDIR=$root "$cmake" --install "$build" >"$root/log" || {
  cat "$root/log"
  exit 1
}
for file in bin/orvix-kbd-display bin/orvix-kbd-switcher share/X11/xkb/geometry/pc-arvane \
  share/orvix-keyboard-layout/kbdSpecs.tab share/orvix-keyboard-layout/icons/de.png \
  share/orvix-i18n/de_DE/orvix-keyboard-layout_de_DE.qm \
  share/applications/orvix-kbd-display.desktop share/man/man1/orvix-kbd-display.1; do
  [ -s "$root/usr/$file" ] || {
    echo "/usr/$file is not installed"
    status=1
  }
done
exit $status
