# Runs the check of the caller's name on the built programs. To be sourced by it, with its words.
# Builds the release preset first. KARVEL_BIN tells another folder of built programs, and nothing is built then.
here=$(cd "$(dirname "$0")" && pwd)
script=$here/$(basename "$0" .sh).py
cd "$here/../.."
. scripts/common.sh
if [ -z "${KARVEL_BIN:-}" ]; then
  InstallPackages
  Build release karvel-robot karvel-sample-shop karvel_program_folder
  KARVEL_BIN=$PWD/build/release/bin
fi
exec python3 -B "$script" "$KARVEL_BIN" "$@"
