#!/bin/bash
# Works at one desk for very long: its memory, its speed and what it holds open stay as they were when it was warm.
#   long_use.sh [actions=100000]
. "$(dirname "$0")/check.sh"
