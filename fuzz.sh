#!/bin/sh
# Builds the fuzz targets and runs them: ./fuzz.sh [seconds a target, default 600]. Finds are kept under build/fuzz/finds/.
set -eu
cd "$(dirname "$0")"
seconds=${1:-600}

if ! command -v clang++-19 >/dev/null || ! ls /usr/lib/llvm-19/lib/clang/19/lib/linux/libclang_rt.fuzzer-*.a >/dev/null 2>&1; then
  [ "$(id -u)" = 0 ] && sudo="" || sudo=sudo
  { $sudo apt-get update -q && $sudo apt-get install -y -q clang-19 libclang-rt-19-dev; } || { echo "fuzz.sh: clang-19 could not be installed" >&2; exit 1; }
fi

cmake --preset fuzz >/dev/null || { echo "fuzz.sh: configuring failed" >&2; exit 1; }
cmake --build --preset fuzz --target dialect_fuzzer || { echo "fuzz.sh: the build failed" >&2; exit 1; }

# New inputs go to the build folder; the kept corpus only seeds.
mkdir -p build/fuzz/found/dialect build/fuzz/finds
if ! build/fuzz/bin/dialect_fuzzer -max_total_time="$seconds" -max_len=12000 -timeout=10 -print_final_stats=1 \
  -dict=src/store/fuzz/dialect.dict -artifact_prefix=build/fuzz/finds/ build/fuzz/found/dialect src/store/fuzz/corpus/dialect; then
  echo "fuzz.sh: the dialect fuzzer found something, see build/fuzz/finds/" >&2
  exit 1
fi
