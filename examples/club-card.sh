#!/bin/bash
# SPDX-License-Identifier: MIT
# Prints the card of a sailing club's member: club-card.sh [OPTION...]
# Options go to vantrel-send, for example --port /dev/ttyUSB0. emblem.png lies beside this script.
set -eu
emblem=$(dirname "$0")/emblem.png
# 53 waits for a card; 46 0 prints it and keeps it at the front. \eE22 is double size, \eB2 bold.
vantrel-send "$@" - <<END
53
49
4D --picture '${emblem//\'/\'\\\'\'}' --x 200 --y 1
41 --direction 3 --x 48 --y 139 '\eE22Gull Bay Sailing'
41 --direction 3 --x 108 --y 179 'Member    \eB2Ada Lovelace'
41 --direction 3 --x 108 --y 203 'Points    \eB21240'
41 --direction 3 --x 108 --y 227 'Date      \eB22026-11-22'
4E --text-below --set C --top 244 --bottom 293 10004711
46 0
END
