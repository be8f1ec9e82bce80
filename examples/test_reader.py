#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""How software for the printer is tested with pytest and pyserial against vantrel-printer.

Needs the Debian packages vantrel, python3-pytest and python3-serial: pytest test_reader.py
"""

import json
import subprocess

import pytest
import serial


class Client:
    """The software that is tested: it composes frames and judges replies."""

    def __init__(self, device):
        self.line = serial.Serial(device, 9600, timeout=20)

    def command(self, code, data=b""):
        """The status and the data of the reply."""
        content = bytes([code]) + data + b"\x03"
        self.line.write(b"\x02" + content + bytes([self.check(content)]))
        assert self.line.read(1) == b"\x06"
        reply = self.line.read_until(b"\x03") + self.line.read(1)
        assert reply[0] == 2 and reply[1] == code and self.check(reply[1:]) == 0
        return reply[2], reply[3:-2]

    @staticmethod
    def check(content):
        value = 0
        for byte in content:
            value ^= byte
        return value


class Printer:
    """A printer of its own, that answers the lines of its script in JSON."""

    def __init__(self):
        self.process = subprocess.Popen(
            ["vantrel-printer", "--headless", "--script", "--json", "--instant"],
            stdin=subprocess.PIPE,
            stdout=subprocess.PIPE,
            text=True,
        )
        self.device = self.answer()["device"]

    def answer(self):
        return json.loads(self.process.stdout.readline())

    def ask(self, line):
        self.process.stdin.write(line + "\n")
        self.process.stdin.flush()
        answer = self.answer()
        assert answer["ok"], answer["error"]
        return answer

    def end(self):
        """The status: 0 where no line was answered with an error."""
        self.process.stdin.close()
        return self.process.wait()


@pytest.fixture
def printer():
    started = Printer()
    yield started
    assert started.end() == 0


@pytest.fixture
def client(printer):
    connected = Client(printer.device)
    yield connected
    connected.line.close()


def test_reads_a_track(printer, client):
    printer.ask("track 1 A SAMPLE")
    printer.ask("insert")
    assert client.command(0x21) == (0x20, b"A SAMPLE")
    assert printer.ask("wait reply 21")["status"] == "20"
    assert printer.ask("state")["card"]["place"] == "inside"


def test_meets_a_fault_on_the_second_try(printer, client):
    printer.ask("insert")
    printer.ask("fault status 37 on 32 after 2")
    for data, status in ((b"FIRST", 0x20), (b"SECOND", 0x37)):
        assert client.command(0x38, data)[0] == 0x20
        assert client.command(0x32, b"1")[0] == status
    assert printer.ask("read track 1")["text"] == "FIRST"
    assert printer.ask("fault list")["faults"] == []


def test_prints_a_picture(printer, client, tmp_path):
    printer.ask("insert")
    assert client.command(0x40)[0] == 0x20
    # Column 10, from the top: eight dots a pair of digits, the top dot in the lowest bit.
    assert client.command(0x43, b"10,0,FF01")[0] == 0x20
    assert client.command(0x46, b"0")[0] == 0x20
    picture = tmp_path / "card.pbm"
    printer.ask('face "%s"' % picture)
    expected = bytearray(480 // 8 * 320)
    for y in range(9):
        expected[480 // 8 * y + 10 // 8] = 0x80 >> 10 % 8
    assert picture.read_bytes() == b"P4\n480 320\n" + expected
