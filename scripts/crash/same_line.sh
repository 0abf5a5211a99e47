#!/bin/bash
# Two desks lay hands on the same line at the same moment.
#   same_line.sh [rounds=10]
# Builds the release preset first. KARVEL_BIN tells another folder of built programs, and nothing is built then.
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cd "$here/../.."
. scripts/common.sh
if [ -z "${KARVEL_BIN:-}" ]; then
  InstallPackages
  Build release karvel-robot karvel-sample-shop karvel_program_folder
  KARVEL_BIN=$PWD/build/release/bin
fi
exec python3 -B "$here/same_line.py" "$KARVEL_BIN" "$@"
