# What the commands of this folder's parent share. To be sourced by them, from the project's folder.
set -euo pipefail

# Says in one line what failed, and ends.
Fail() {
  echo "${0##*/}: $1" >&2
  exit 1
}

# InstallPackages [PACKAGE…]: what packages.txt and the words name and the machine lacks.
InstallPackages() {
  local package missing=()
  while read -r package; do
    [ -n "$package" ] || continue
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
  done < <(cat packages.txt && printf '%s\n' "$@")
  [ ${#missing[@]} -gt 0 ] || return 0
  local asRoot=()
  [ "$(id -u)" = 0 ] || asRoot=(sudo)
  "${asRoot[@]}" apt-get update -q || Fail "the package lists could not be fetched"
  "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}" ||
    Fail "could not be installed: ${missing[*]}"
}

# Configure PRESET
Configure() {
  local log
  log=$(cmake --preset "$1" 2>&1) || {
    echo "$log" >&2
    Fail "configuring the $1 preset failed"
  }
}

# Build PRESET [TARGET…]
Build() {
  local preset=$1
  shift
  Configure "$preset"
  cmake --build --preset "$preset" ${@:+--target "$@"} || Fail "building the $preset preset failed"
}
