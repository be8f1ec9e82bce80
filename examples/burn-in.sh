#!/bin/bash
# SPDX-License-Identifier: MIT
# Moves and prints one card again and again over night: burn-in.sh [OPTION...]
# Options go to vantrel-send. The report tells every exchange; the run ends at the first failure, or
# with Ctrl+C, and says how to go on.
printf '%s\n' 53 40 '41 --direction 3 --x 24 --y 60 Burn-in' 51 53 '46 0' |
  vantrel-send --until-failure --report burn-in.json "$@" -
