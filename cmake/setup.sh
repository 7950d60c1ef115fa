# Sourced by the commands at the root: installs the Debian packages that are missing.
# Needs apt, and root or sudo, only when something is missing.

packages_build=(
  build-essential cmake ninja-build pkg-config
  qt6-base-dev qt6-base-dev-tools qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools
  librsvg2-bin iso-flags-svg fonts-dejavu-core libx11-dev libx11-xcb-dev libxtst-dev libxi-dev libxcb1-dev libxcb-xinput-dev libxcb-xkb-dev
)
packages_run=(
  qt6-translations-l10n iso-codes xkb-data x11-xkb-utils fonts-noto-core fonts-wqy-microhei
)
packages_headless=(xvfb openbox xterm)
packages_check=(
  xvfb xserver-xephyr xserver-xorg-core xserver-xorg-dev xserver-xorg-video-dummy
  tigervnc-standalone-server weston xwayland tk
  openbox xfwm4 metacity xterm x11-utils x11-xserver-utils xauth dbus
  poppler-utils libxkbcommon-dev libxkbcommon-x11-dev clang clang-format-19 clang-tidy libclang-rt-dev git
  desktop-file-utils appstream mandoc groff mold strace valgrind
)
packages_long=(fluxbox icewm jwm) # window managers that ./check does without
packages_package=(git debhelper dpkg-dev lintian)
packages_clean_root=(debootstrap rsync util-linux)
packages_bench=(xvfb openbox libxcb-damage0-dev)

can_be_root() {
  [ "$(id -u)" -eq 0 ] || command -v sudo >/dev/null
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  else
    sudo "$@"
  fi
}

# ensure_packages PACKAGE… — says nothing when all are there. Ends the script when some are missing
# and cannot be installed.
ensure_packages() {
  local installed missing=() package
  installed=$(dpkg-query -W -f '${Package} ${db:Status-Abbrev}\n' "$@" 2>/dev/null | sed -n 's/ ii.*//p' || true)
  for package in "$@"; do
    grep -qx "$package" <<<"$installed" || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  if ! can_be_root; then
    echo "Packages are missing, and there is no sudo to install them with. As root, run:" >&2
    echo "  apt-get install --no-install-recommends ${missing[*]}" >&2
    exit 1
  fi
  echo "Installing: ${missing[*]}" >&2
  as_root apt-get update -q >&2
  as_root env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -q --no-install-recommends "${missing[@]}" >&2
}

# quietly COMMAND… — runs it, and prints what it has said only if it fails.
quietly() {
  local log status=0
  log=$(mktemp)
  "$@" >"$log" 2>&1 || status=$?
  [ $status -eq 0 ] || cat "$log" >&2
  rm -f "$log"
  return $status
}

# build_preset PRESET [CMAKE-OPTION…] — configures at the first call and builds what has changed.
build_preset() {
  local preset=$1
  shift
  if [ ! -e "build/$preset/build.ninja" ] || [ $# -gt 0 ]; then
    quietly cmake --preset "$preset" "$@" || return
  fi
  quietly cmake --build --preset "$preset"
}

# build_target PRESET TARGET — the same of one target, with what it needs.
build_target() {
  [ -e "build/$1/build.ninja" ] || quietly cmake --preset "$1" || return
  quietly cmake --build --preset "$1" --target "$2"
}

# copy_source DIRECTORY — copies what git knows of or would take in; without git, all but what was
# built.
copy_source() {
  { git ls-files -z --cached --others --exclude-standard 2>/dev/null \
    || find . -path ./build -prune -o -type f -print0; } \
    | while IFS= read -r -d '' file; do [ ! -e "$file" ] || printf '%s\0' "$file"; done \
    | xargs -0 cp --parents --preserve=mode,timestamps -t "$1"
}
