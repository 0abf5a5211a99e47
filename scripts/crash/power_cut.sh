#!/bin/bash
# Cuts the power of a desk at work, on a model of a disk that keeps no more than it must, and looks over what is left.
#   power_cut.sh [cuts=20000] [seed=1]
. "$(dirname "$0")/check.sh"
