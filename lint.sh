#!/bin/bash
# Checks what a machine can: the layout of every file (.clang-format) and a small set of faults and names (.clang-tidy).
#   ./lint.sh        all files
#   ./lint.sh core   all files' layout; of the rest the folders of src/ without the window
#   ./lint.sh fix    lays every file out, and checks nothing
cd "$(dirname "${BASH_SOURCE[0]}")"
. scripts/common.sh
way=${1:-}
case $way in
  "" | fix) folders=(src tests benchmarks) ;;
  core) folders=(src/{text,platform,store,settings,touch,books,desk,accounts,exchange,documents}) ;;
  *) Fail "what is \"$way\"? Without a word, core or fix" ;;
esac

# The checks read how the files are compiled, so these need the whole house's packages.
InstallPackages clang-format-19 clang-tidy-19
mapfile -d '' files < <(find src tests benchmarks cmake \( -name '*.cpp' -o -name '*.h' \) -print0)
if [ "$way" = fix ]; then
  printf '%s\0' "${files[@]}" | xargs -0 -n 50 -P "$(nproc)" clang-format-19 -i || Fail "a file could not be laid out"
  exit 0
fi
printf '%s\0' "${files[@]}" | xargs -0 -n 50 -P "$(nproc)" clang-format-19 --dry-run --Werror ||
  Fail "a file's layout is not the formatter's: ./lint.sh fix lays them out"

Configure release
exec python3 scripts/tidy.py build/release/compile_commands.json "${folders[@]}"
