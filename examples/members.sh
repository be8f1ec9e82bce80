#!/bin/bash
# SPDX-License-Identifier: MIT
# Prints a card for each member of a CSV file of "number,name": members.sh MEMBERS.csv [OPTION...]
# Options go to vantrel-send, for example --port /dev/ttyUSB0.
set -u
file=${1:?which CSV file?}
shift
quoted() { printf "'%s'" "${1//\'/\'\\\'\'}"; }
while IFS=, read -r number name || [ -n "$number" ]; do
  [ -n "$number" ] || continue
  name=${name%$'\r'}
  # 53 waits for a card; 46 1 prints it and hands it out. A backslash begins an escape in 41.
  printf '%s\n' 53 40 "41 --direction 3 --x 24 --y 60 -- $(quoted "${name//\\/\\\\}")" \
    "4E --set C --top 200 --bottom 260 $(quoted "$number")" '46 1'
done <"$file" | vantrel-send "$@" -
