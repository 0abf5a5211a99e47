#!/bin/bash
# Hands that know nothing of the desk try it at random.
#   random_hands.sh [seeds=4] [requests=1500] [first seed=1]
# Builds the release preset first. KARVEL_BIN tells another folder of built programs, and nothing is built then.
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cd "$here/../.."
. scripts/common.sh
if [ -z "${KARVEL_BIN:-}" ]; then
  InstallPackages
  Build release karvel-robot karvel-sample-shop karvel_program_folder
  KARVEL_BIN=$PWD/build/release/bin
fi
exec python3 -B "$here/random_hands.py" "$KARVEL_BIN" "$@"
