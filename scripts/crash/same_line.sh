#!/bin/bash
# Two desks lay hands on the same line at the same moment.
#   same_line.sh [rounds=10]
. "$(dirname "$0")/check.sh"
