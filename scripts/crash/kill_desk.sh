#!/bin/bash
# Kills the desk at random moments while a clerk does everything that can be done at it, and looks over the books.
#   kill_desk.sh [times=1000] [seed=1]
# Builds the release preset first. KARVEL_BIN tells another folder of built programs, and nothing is built then.
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cd "$here/../.."
. scripts/common.sh
if [ -z "${KARVEL_BIN:-}" ]; then
  InstallPackages
  Build release karvel-robot karvel-sample-shop karvel_program_folder
  KARVEL_BIN=$PWD/build/release/bin
fi
exec python3 -B "$here/kill_desk.py" "$KARVEL_BIN" "$@"
