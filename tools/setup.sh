# shellcheck shell=bash disable=SC2034
# Sourced by the commands in the repository's root: installs what is missing, configures, builds.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
say() { echo "corvelle: $*" >&2; }

# What building the Windows flavour takes.
windows_packages=(g++ g++-mingw-w64-i686-posix mingw-w64-tools cmake ninja-build libcli11-dev googletest
  librsvg2-bin icoutils imagemagick python3 fp-utils nsis zip)

# need_packages NAME...: installs the Debian packages that are missing; asks nothing.
need_packages() {
  command -v dpkg-query >/dev/null || return 0 # not a Debian: the build says what it misses
  local missing=() name
  while read -r name status; do
    [ "$status" = ii ] || missing+=("$name")
  done < <(for name in "$@"; do
    echo "$name $(dpkg-query -W -f '${db:Status-Abbrev}' "$name" 2>/dev/null)"
  done)
  [ ${#missing[@]} -eq 0 ] && return 0

  say "installing ${missing[*]}"
  local as_root=()
  [ "$(id -u)" = 0 ] || as_root=(sudo)
  local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o Dpkg::Use-Pty=0)
  local log
  log=$(mktemp)
  # Lists that cannot be brought up to date matter only where the packages then cannot be had.
  "${apt[@]}" update >"$log" 2>&1 || true
  "${apt[@]}" install -y --no-install-recommends "${missing[@]}" >>"$log" 2>&1 </dev/null || {
    cat "$log" >&2
    rm -f "$log"
    say "could not install: ${missing[*]}"
    return 1
  }
  rm -f "$log"
}

# is_here FOLDER: whether it was configured where it stands, and not moved here.
is_here() { grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$1/CMakeCache.txt"; }

# is_configured PRESET: whether build/PRESET can be built as it is.
is_configured() { [ -e "$root/build/$1/build.ninja" ] && is_here "$root/build/$1"; }

# configure PRESET [CMAKE-ARGS]: configures build/PRESET; a tree that was moved here is made anew.
configure() {
  local preset=$1 folder=$root/build/$1
  shift
  if [ -e "$folder/CMakeCache.txt" ] && ! is_here "$folder"; then rm -rf "$folder"; fi
  mkdir -p "$folder"
  (cd "$root" && cmake --preset "$preset" "$@") >"$folder/configure.log" 2>&1 || {
    cat "$folder/configure.log" >&2
    say "could not configure build/$preset"
    return 1
  }
}

# build PRESET [TARGET...]: brings the targets up to date; prints only what goes wrong.
build() {
  local folder=$root/build/$1
  shift
  ninja -C "$folder" "$@" >"$folder/build.log" 2>&1 || {
    cat "$folder/build.log" >&2
    return 1
  }
}
