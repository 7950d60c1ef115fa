#!/usr/bin/env bash
# Everything that talks to X lives in src/x11: no other folder includes <X11/…>, whose macros break
# Qt's and moc's names, or <xcb/…>. And few headers outside need to look into Xlib's records.
cd "$1" || exit 2
others=$(ls -d */ | grep -vE '^(build|docs|debian)/')
status=0

# included PATTERN FILES… — the #include lines of the pattern outside the X room.
included() {
  local pattern=$1
  shift
  grep -rnE "${@/#/--include=}" "^[[:space:]]*#[[:space:]]*include[[:space:]]*$pattern" $others |
    grep -v '^src/x11/'
}

# complain WORDS LINES
complain() {
  [ -z "$2" ] && return
  printf '%s:\n%s\n' "$1" "$2"
  status=1
}

complain 'Include x11/X11.h, or x11/Types.h in a header, instead' \
  "$(included '[<"]X11/' '*.h' '*.cpp' '*.inc')"
complain 'Put what speaks XCB into src/x11, and include its header instead' \
  "$(included '[<"]xcb/' '*.h' '*.cpp' '*.inc')"

headers=$(included '"x11/X11\.h"' '*.h')
[ "$(grep -c . <<<"$headers")" -le 6 ] ||
  complain 'More than six headers include x11/X11.h; x11/Types.h may do' "$headers"
exit $status
