#!/usr/bin/env bash
# spec_table.sh CHECKOUT CMAKE — of the keyboard table the build keeps what the XKB rules know, and says
# what it leaves out.
checkout=$1 cmake=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch" || exit 2

cat >rules.lst <<'END'
! model
  unheard         Not a layout

! layout
  us              English (US)
  nz              English (New Zealand)
  in              Indian

! variant
  dvorak          us: English (Dvorak)
  mao             nz: Maori
  eng             in: English (India; with rupee)

! option
  grp             Switching to another layout
END

# Left out: a layout and a variant that the rules do not have, also as the second of two, and the
# variant of another layout. What has a second line of its name keeps the first known one.
cat >table.tab <<'END'
# A comment with a tab	of	its	own	stays

Maori [Te reo; Māori]	badge-mri.png	pc104	mao	
Maori [Te reo; Māori]	badge-mri.png	pc104	nz	mao
Maori [Te reo; Māori]	badge-mri.png	pc104	nz	
Two layouts	us.png	pc104	us,in	dvorak,eng
Two layouts, the second unknown	us.png	pc104	us,xx	
Two layouts, second variant unknown	us.png	pc104	us,in	,none
United States	us.png	pc104	us	
United States, four fields	us.png	pc104	us
Variant of another	us.png	pc104	us	mao
A model is no layout	us.png	pc104	unheard	
END
grep -vE '	mao	$|	nz	$|unknown|another|no layout' table.tab >expected.tab

cat >build.cmake <<END
cmake_minimum_required(VERSION 3.25)
include($checkout/cmake/SpecTable.cmake)
kbd_spec_table(SOURCE table.tab RULES rules.lst OUTPUT built.tab)
END
"$cmake" -P build.cmake >said 2>&1 || {
  cat said
  exit 1
}

status=0
diff expected.tab built.tab || status=1
for left_out in 'Maori, .* no mao' 'Two layouts, the second unknown, .* no xx' \
  'Two layouts, second variant unknown, .* no in(none)' 'Variant of another, .* no us(mao)' \
  'A model is no layout, .* no unheard'; do
  grep -q "left out $left_out\$" said || {
    echo "not said: $left_out"
    status=1
  }
done
[ "$(wc -l <said)" -eq 5 ] || {
  cat said
  status=1
}
exit $status
