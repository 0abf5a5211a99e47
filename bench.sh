#!/bin/bash
# Measures the desk beside the bare engines, its own files' and a main machine's, and prints one table of ratios: both sides in turn, in one run, on this machine.
#   ./bench.sh
# The sample shops are made at the first run and kept under build/bench-data.
cd "$(dirname "${BASH_SOURCE[0]}")"
. scripts/common.sh
[ $# = 0 ] || Fail "it takes no words"

InstallPackages postgresql-15
Build bench karvel-bench karvel-network-bench karvel-window-bench karvel-robot karvel_program_folder
bin=$PWD/build/release/bin
good=yes
"$bin/karvel-bench" build/bench-data "$bin/karvel-robot" "$bin/karvel-window-bench" || good=
"$bin/karvel-network-bench" build/bench-data || good=
[ "$good" ] || Fail "a figure is over its limit"
