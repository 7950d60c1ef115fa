#!/usr/bin/env bash
# The rooms' arrows run one way: a room includes itself and the rooms listed for it.
cd "$1" || exit 2

declare -A below=(
  [src/paths]="paths"
  [src/x11]="x11"
  [src/x11/qt]="x11/qt x11"
  [switcher]="switcher x11"
  [platform]="platform x11"
  [src/app/description]="app/description x11/qt x11"
  [src/keys]="keys keys/labels app/description x11/qt x11"
  [src/model]="model keys app/description x11/qt x11"
  [src/ui]="ui ui/specs model keys app/description x11/qt x11 paths"
  [src/app]="app ui ui/specs model keys app/description x11/qt x11 platform paths"
)
status=0
for room in "${!below[@]}"; do
  depth=99
  [[ $room == src/app || $room == src/x11 ]] && depth=1
  while IFS=: read -r file line text; do
    target=$(sed -E 's/.*"(.*)".*/\1/' <<<"$text")
    [[ $target == */* ]] || continue
    folder=${target%/*}
    case " ${below[$room]} " in
      *" $folder "*) continue ;;
    esac
    echo "$file:$line: $room must not include $target"
    status=1
  done < <(find "$room" -maxdepth "$depth" -name '*.h' -print0 -o -maxdepth "$depth" -name '*.cpp' -print0 \
    | xargs -0 grep -HnE '^#include "' 2>/dev/null)
done
exit $status
