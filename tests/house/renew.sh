#!/usr/bin/env bash
# What ./run puts below /usr is renewed when what is built has changed, and nothing else is touched.
. "$1/cmake/renew.sh"
as_root() { "$@"; }
directory=$(mktemp -d)
trap 'rm -rf "$directory"' EXIT
renew_record=$directory/state/put-by-run
built=$directory/built place=$directory/usr/share/place
status=0

# holds TEXT WHAT — the place has this text now.
holds() {
  [ "$(cat "$place")" = "$1" ] && return 0
  echo "$2: expected '$1', found '$(cat "$place")'"
  status=1
}

echo first >"$built"
renew "$built" "$place" 644
holds first "A file that is missing is put there"

echo second >"$built"
renew "$built" "$place" 644
holds second "A file that was put there is renewed"
[ "$(wc -l <"$renew_record")" -eq 1 ] || { echo "The record has more than the file's last state" && status=1; }

echo "the administrator's" >"$place"
said=$(renew "$built" "$place" 644 2>&1)
holds "the administrator's" "A file of another origin is left as it is"
[[ $said == *"$place was not put there by ./run"* ]] || { echo "Nothing is said of it: '$said'" && status=1; }

echo second >"$place"
[ -z "$(renew "$built" "$place" 644 2>&1)" ] || { echo "A file that is as it should be is talked about" && status=1; }
exit $status
