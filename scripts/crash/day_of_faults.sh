#!/bin/bash
# A day on which disks, locks, kills and clocks go wrong while a clerk works: nothing half, nothing doubled, nothing told falsely.
#   day_of_faults.sh [actions=400] [seed=1]
. "$(dirname "$0")/check.sh"
