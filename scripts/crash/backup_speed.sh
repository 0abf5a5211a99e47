#!/bin/bash
# Measures the backup of a large shop, and how long a posting at other desks waits for it.
#   backup_speed.sh [rows=1000000] [desks=1] [folder=build/backup-speed]
. "$(dirname "$0")/check.sh"
