#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints a card for each member of a CSV file of "number,name".

members.py MEMBERS.csv [OPTION...]: the options go to vantrel-send."""
import csv
import json
import shlex
import subprocess
import sys


def main(path, options):
    sender = subprocess.Popen(["vantrel-send", *options, "--json", "-"], text=True,
                              stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def send(*words):
        print(shlex.join(words), file=sender.stdin, flush=True)
        answer = json.loads(sender.stdout.readline() or '{"outcome": "no answer"}')
        if answer.get("status") != "20":
            sys.exit(f"{words}: {answer.get('meaning', answer.get('error', answer['outcome']))}")

    with open(path, newline="", encoding="utf-8") as file:
        for number, name in filter(None, csv.reader(file)):
            send("53")  # waits for a card
            send("40")
            text = name.replace("\\", "\\\\").replace("\n", "\\n")
            send("41", "--direction", "3", "--x", "24", "--y", "60", "--", text)
            send("4E", "--set", "C", "--top", "200", "--bottom", "260", number)
            send("46", "1")
            print(f"{number} {name}", flush=True)


main(sys.argv[1], sys.argv[2:])
