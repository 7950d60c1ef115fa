#!/usr/bin/env bash
# No file has both sides of a merge in it.
cd "$1" || exit 2
! grep -rnE --binary-files=without-match '^(<{7}|={7}|>{7}|\|{7})( |$)' --exclude-dir=build --exclude-dir=.git .
