#!/bin/bash
# Tries backups beside many desks that post, and on a drive that is full, read-only or pulled out in the middle.
#   backup_trials.sh [desks=8] [backups=5]
. "$(dirname "$0")/check.sh"
