#!/bin/bash
# SPDX-License-Identifier: MIT
# How a shell script is tested against vantrel-printer: reads the first track of a card and compares it.
# read-card.sh ends with status 0 where all went as expected.
set -euo pipefail
coproc printer { exec vantrel-printer --headless --script --instant; }
pid=$printer_PID
trap 'kill "$pid" 2>/dev/null || true' EXIT
# ask LINE: gives the printer a line of its script; its answer must be "ok".
ask() {
  local answer
  echo "$1" >&"${printer[1]}"
  read -r answer <&"${printer[0]}"
  [[ $answer == ok* ]] || {
    echo "$1: $answer" >&2
    return 1
  }
}

read -r device <&"${printer[0]}"
ask 'track 1 A SAMPLE'
ask 'insert'
track=$(vantrel-send --port "$device" --quiet 21)
[ "$track" = 'A SAMPLE' ] || {
  echo "The card reads '$track'." >&2
  exit 1
}
ask 'wait reply 21'

# A fault that the script is to meet: the next read finds no card.
ask 'fault status 22 on 21'
status=0
vantrel-send --port "$device" --quiet 21 >/dev/null || status=$?
[ "$status" -eq 1 ] || exit 1

# The end of its input ends the printer, with status 0 where no line was refused.
eval "exec ${printer[1]}>&-"
wait "$pid"
