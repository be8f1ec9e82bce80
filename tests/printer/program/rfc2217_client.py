# SPDX-License-Identifier: MIT
"""Sends commands to a printer behind a server of RFC 2217: rfc2217_client.py PORT

Each line of standard input is a command, "CODE DATA" in hex; its reply's status is written to
standard output as two hex digits.
"""

import sys
import time

import serial


def open_port(port):
    """The server may still be starting."""
    # A pseudo-terminal has no lines such as DTR whose setting the server could confirm.
    deadline = time.monotonic() + 20
    while True:
        try:
            return serial.serial_for_url(
                "rfc2217://127.0.0.1:%s?ign_set_control" % port,
                baudrate=9600,
                timeout=20,
            )
        except serial.SerialException:
            if time.monotonic() > deadline:
                raise
            time.sleep(0.05)


def block_check(content):
    check = 0
    for byte in content:
        check ^= byte
    return check


def status_of(line, words):
    content = bytes.fromhex("".join(words)) + b"\x03"
    line.write(b"\x02" + content + bytes([block_check(content)]))
    control = line.read(1)
    if control != b"\x06":
        return control.hex()
    reply = line.read_until(b"\x03") + line.read(1)
    if len(reply) < 5 or block_check(reply[1:]) != 0 or reply[1] != content[0]:
        return "bad reply " + reply.hex()
    return "%02X" % reply[2]


with open_port(sys.argv[1]) as printer:
    for command in sys.stdin:
        print(status_of(printer, command.split()), flush=True)
