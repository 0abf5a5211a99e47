#!/bin/bash
# Many desks of one shop post at once.
#   many_desks.sh [desks=8] [lines=500] [kills=0] [kills of the main machine; without it the shop lies in files]
. "$(dirname "$0")/check.sh"
