#!/bin/bash
# Kills the desk at random moments while a clerk does everything that can be done at it, and looks over the books.
#   kill_desk.sh [times=1000] [seed=1]
. "$(dirname "$0")/check.sh"
