#!/bin/bash
# Many desks of one shop post at once.
#   many_desks.sh [desks=8] [lines=500]
# Builds the release preset first. KARVEL_BIN tells another folder of built programs, and nothing is built then.
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cd "$here/../.."
. scripts/common.sh
if [ -z "${KARVEL_BIN:-}" ]; then
  InstallPackages
  Build release karvel-robot karvel-sample-shop karvel_program_folder
  KARVEL_BIN=$PWD/build/release/bin
fi
exec python3 -B "$here/many_desks.py" "$KARVEL_BIN" "$@"
