#!/bin/bash
# Many desks of one shop post at once.
#   many_desks.sh [desks=8] [lines=500] [kills=0]
. "$(dirname "$0")/check.sh"
