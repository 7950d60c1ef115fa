#!/usr/bin/env bash
# <X11/…> is included in src/x11 only: its macros break Qt's and moc's names.
cd "$1" || exit 2
found=$(grep -rnE --include='*.h' --include='*.cpp' --include='*.inc' '#[[:space:]]*include[[:space:]]*<X11/' \
  src platform switcher harness tests tools bench 2>/dev/null | grep -v '^src/x11/')
[ -z "$found" ] && exit 0
echo "Include x11/X11.h instead:"
echo "$found"
exit 1
