#!/bin/bash
# Posts on a disk that fills up and in a folder that is locked.
#   full_disk.sh
. "$(dirname "$0")/check.sh"
