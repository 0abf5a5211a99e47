#!/bin/bash
# Hands that know nothing of the desk try it at random.
#   random_hands.sh [seeds=4] [requests=1500] [first seed=1]
. "$(dirname "$0")/check.sh"
