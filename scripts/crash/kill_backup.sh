#!/bin/bash
# Kills the desk at random moments while it makes a backup, and looks whether the older one is whole.
#   kill_backup.sh [times=200] [seed=1]
. "$(dirname "$0")/check.sh"
