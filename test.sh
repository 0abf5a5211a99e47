#!/bin/bash
# Installs what is missing, builds, and runs every test.
#   ./test.sh        the release preset
#   ./test.sh asan   with the address and undefined behaviour sanitizers
cd "$(dirname "${BASH_SOURCE[0]}")"
. scripts/common.sh
preset=${1:-release}
case $preset in release | asan) ;; *) Fail "what is \"$preset\"? Without a word, or asan" ;; esac

# Read what was printed, and a printing system, FTP servers and a database server of the tests' own.
InstallPackages unzip poppler-utils zbar-tools cups cups-client cups-filters python3-pyftpdlib vsftpd openssl mdbtools postgresql-15
Build "$preset"
# Leaks of the toolkit and its plug-ins are not ours to mend.
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=0} UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1}
# Its own summary, with the names of the failed, is the last that is said.
exec ctest --test-dir "build/$preset" -j2 --output-on-failure --no-tests=error
