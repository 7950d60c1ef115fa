#!/usr/bin/env bash
# The rooms' arrows run one way: a room includes itself and the rooms listed for it. Every folder
# with C++ in it is a room, and stands here.
cd "$1" || exit 2

x11='x11'
qt="$x11 x11/qt"
description="$qt app/description"
keys="$description keys keys/labels"
model="$description keys model"
ui="$model ui ui/specs paths"
app="$ui app platform"
harness="harness $x11"

declare -A below=(
  [src/paths]='paths'
  [src/x11]=$x11
  [src/x11/qt]=$qt
  [src/x11/damage]="$x11 x11/damage"
  [switcher]="switcher $x11"
  [platform]="platform $x11"
  [src/app/description]=$description
  [src/keys]=$keys
  [src/keys/labels]=
  [src/model]=$model
  [src/ui]=$ui
  [src/ui/specs]='app/description keys ui/specs paths'
  [src/app]=$app
  [harness]=$harness
  [tools/show]="$app $harness"
  [bench]="$app $harness x11/damage"
  [tests/paths]='paths'
  [tests/unit]="$app $harness keys/labels"
  [tests/x11]="$app $harness"
  [tests/long]="$app $harness tests/long"
  [tests/fuzz]="$app switcher tests/unit tests/fuzz"
)
status=0

# The folders with C++ in them, but for what is built.
folders=$(find . -path './build*' -prune -o -path './.git' -prune -o \
  \( -name '*.h' -o -name '*.cpp' -o -name '*.inc' \) -printf '%P\n' | sed 's,/[^/]*$,,' | sort -u)

for room in $folders; do
  if [ -z "${below[$room]+listed}" ]; then
    echo "$room: a folder with C++ that tests/house/arrows.sh does not list"
    status=1
    continue
  fi
  while IFS=: read -r file line text; do
    [[ $text =~ \"(.*)/([^/]*)\" ]] || continue
    [[ " ${below[$room]} " == *" ${BASH_REMATCH[1]} "* ]] && continue
    echo "$file:$line: $room must not include ${BASH_REMATCH[1]}/${BASH_REMATCH[2]}"
    status=1
  done < <(find "$room" -maxdepth 1 \( -name '*.h' -o -name '*.cpp' -o -name '*.inc' \) -print0 |
    xargs -0 grep -HnE '^[[:space:]]*#[[:space:]]*include[[:space:]]*"')
done
exit $status
