# Sourced by ./run after setup.sh: puts files where programs outside this tree look for them.

# The checksums of what was put there, as sha256sum prints them: a file that is listed is ours, and
# any other is a package's or the administrator's.
renew_record=/var/lib/orvix-kbd-display/put-by-run

# renew BUILT PLACE MODE — puts the file there, or puts it there again when what was built has
# changed. A file that was not put there by this command is left as it is, with a line that says so.
renew() {
  local built=$1 place=$2 mode=$3
  cmp -s "$built" "$place" && return 0
  if [ -e "$place" ] && ! grep -qxF "$(sha256sum "$place")" "$renew_record" 2>/dev/null; then
    echo "$place was not put there by ./run, and is not what was built here. It is left as it is." >&2
    return 0
  fi
  as_root install -D -m "$mode" "$built" "$place"
  note_renewed "$place"
}

# note_renewed PLACE — replaces the place's line in the record.
note_renewed() {
  local noted
  noted=$(mktemp)
  { grep -vF "  $1" "$renew_record" 2>/dev/null || true; } >"$noted"
  sha256sum "$1" >>"$noted"
  as_root install -D -m 644 "$noted" "$renew_record"
  rm -f "$noted"
}
