#!/bin/bash
# Opens the desk on a sample shop.
#   ./run.sh        on the display; without one a day is played by the robot, see build/demo/
#   ./run.sh demo   the robot's day, in any case
#   ./run.sh vnc    on port 5900 of this machine alone (KARVEL_VNC_PORT for another), for a VNC viewer
cd "$(dirname "${BASH_SOURCE[0]}")"
. scripts/common.sh
way=${1:-}
case $way in "" | demo | vnc) ;; *) Fail "what is \"$way\"? Without a word, demo or vnc" ;; esac

InstallPackages
Build release karvel karvel-robot karvel-sample-shop karvel_program_folder
bin=$PWD/build/release/bin
[ -n "$way" ] || [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || way=demo

# MakeShop HOME: a shop's day so far, whole or not at all.
MakeShop() {
  rm -rf "$1.new"
  "$bin/karvel-sample-shop" "$1.new" --cards 500 --customers 300 --rows 5000 --seed 1 || Fail "the sample shop could not be made"
  mv "$1.new" "$1"
}

if [ "$way" = demo ]; then
  rm -rf build/demo
  mkdir -p build/demo
  MakeShop "$PWD/build/demo/home"
  scripts/play_day.sh "$bin" "$PWD/build/demo" || Fail "the day could not be played, see build/demo/"
  echo "A day was played: screenshots and the rows are in build/demo/"
  exit 0
fi

# What was tried on the sample shop stays until build/demo-home is deleted.
export KARVEL_HOME=$PWD/build/demo-home
[ -d "$KARVEL_HOME" ] || MakeShop "$KARVEL_HOME"
if [ "$way" = vnc ]; then
  port=${KARVEL_VNC_PORT:-5900}
  # The toolkit's VNC server has no password and listens on every network; here it is kept to the machine itself.
  mkdir -p build/vnc
  cc -O2 -shared -fPIC -o build/vnc/loopback.so scripts/loopback.c || Fail "loopback.so could not be built"
  echo "The desk is at 127.0.0.1:$port for a VNC viewer"
  export QT_QPA_PLATFORM=vnc:size=${KARVEL_SIZE:-1024x768}:port=$port LD_PRELOAD=$PWD/build/vnc/loopback.so
fi
"$bin/karvel" || Fail "the desk ended with an error"
