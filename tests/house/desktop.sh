#!/usr/bin/env bash
# What desktops and manual readers are given is well formed.
cd "$1/data" || exit 2
status=0

# complains COMMAND… — a checker counts as content only when it is silent, whatever its status.
complains() {
  local said
  said=$("$@" 2>&1) && [ -z "$said" ] && return 1
  printf '%s:\n%s\n' "$*" "$said"
}

for file in *.desktop; do
  complains desktop-file-validate "$file" && status=1
done
# The program has no home page yet, which newer versions warn of.
for file in *.metainfo.xml; do
  said=$(appstreamcli validate --no-net "$file" 2>&1)
  grep -q Validation <<<"$said" && ! grep -E '^[EW]:' <<<"$said" | grep -qv url-homepage-missing || {
    echo "$said"
    status=1
  }
done
for page in man/*.1; do
  complains mandoc -T lint -W warning "$page" && status=1
  complains groff -man -Tutf8 -ww -z "$page" && status=1
done

# AppStream wants the file named after the component, and the component to start our desktop file.
for file in *.metainfo.xml; do
  grep -q "<id>${file%.metainfo.xml}</id>" "$file" || {
    echo "$file: its name is not its id"
    status=1
  }
  launched=$(sed -n 's,.*<launchable type="desktop-id">\(.*\)</launchable>.*,\1,p' "$file")
  [ -n "$launched" ] && [ -e "$launched" ] || {
    echo "$file: launches '$launched', which is not there"
    status=1
  }
done
exit $status
