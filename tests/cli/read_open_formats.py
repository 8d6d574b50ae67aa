#!/usr/bin/env python3
"""Reads exports with readers of its own, and compares them with what `kolt-cli values` printed.

    read_open_formats.py DBC LOG DATABASE CYCLE NAME=VALUES.json...

Prints JSON: for each parameter how many samples were compared and how many differ, by file; and the
span of the differences between the log's clock and the unit's counter.
"""

import json
import math
import re
import sqlite3
import struct
import sys

import can

SIGNAL = re.compile(r' SG_ (\w+) : (\d+)\|(\d+)@1([+-]) \(([^,]+),([^)]+)\) \[[^]]*\] "([^"]*)" ')


def read_dbc(path):
    """Signals by the full name in their comment."""
    text = open(path, encoding="cp1252").read()
    floats = set(re.findall(r"SIG_VALTYPE_ (\d+ \w+) : 1;", text))
    names = dict(re.findall(r'CM_ SG_ (\d+ \w+) "([^"\n]*)', text))
    signals, message = {}, None
    for line in text.splitlines():
        if head := re.match(r"BO_ (\d+) \w+: 8 \w+", line):
            message = head[1]
        elif found := SIGNAL.match(line):
            key = f"{message} {found[1]}"
            signals[names[key]] = dict(
                id=int(message) & 0x7FFFFFFF, start=int(found[2]), bits=int(found[3]),
                signed=found[4] == "-", factor=float(found[5]), offset=float(found[6]),
                unit=found[7], float=key in floats)
    return signals


def single(number):
    return struct.unpack("<f", struct.pack("<f", number))[0]


def decode(signal, data):
    """The value as docs/exports.md says that KOLT differs from plain DBC."""
    raw = int.from_bytes(data, "little") >> signal["start"] & (1 << signal["bits"]) - 1
    if signal["float"]:
        raw = struct.unpack("<f", struct.pack("<I", raw))[0]
        value = single(raw * signal["factor"] + signal["offset"])
        if signal["unit"] == "DDDMM.mmmm":
            degrees = math.trunc(value / 100)
            value = degrees + single(value / 100 - degrees) * 100 / 60
        return value
    if signal["signed"] and raw >> signal["bits"] - 1:
        raw -= 1 << signal["bits"]
    whole = math.trunc(raw * signal["factor"] + signal["offset"])
    kept = whole & (1 << signal["bits"]) - 1
    return kept - (1 << signal["bits"]) if signal["signed"] and kept >> signal["bits"] - 1 else kept


def as_number(text):
    try:
        return float(text)
    except ValueError:
        return None


def main():
    dbc, log, database, cycle = sys.argv[1:5]
    signals = read_dbc(dbc)
    frames = {}
    for message in can.CanutilsLogReader(log):
        assert message.is_extended_id == (message.arbitration_id > 0x7FF) and message.dlc == 8
        frames.setdefault(message.arbitration_id, []).append(message)
    connection = sqlite3.connect(f"file:{database}?mode=ro", uri=True)
    result, clocks = {}, []
    for argument in sys.argv[5:]:
        name, path = argument.rsplit("=", 1)
        # number and text; the text of a ULONG has decimals
        samples = json.load(open(path))["samples"]
        signal = signals[name]
        sent = frames[signal["id"]]
        rows = connection.execute(
            f'SELECT seconds, value FROM "{name}" WHERE cycle = ?', (cycle,)).fetchall()
        result[name] = dict(
            samples=len(samples), frames=len(sent), rows=len(rows),
            wrongFrames=sum(abs(decode(signal, frame.data) - sample[2]) > 1e-12 * abs(sample[2])
                            for frame, sample in zip(sent, samples)),
            wrongRows=sum(row[0] != sample[0] or row[1] not in (sample[2], as_number(sample[3]))
                          for row, sample in zip(rows, samples)))
        clocks += [frame.timestamp - sample[0] for frame, sample in zip(sent, samples)]
    counts = {table: connection.execute(f"SELECT count(*) FROM {table} WHERE cycle = ?",
                                        (cycle,)).fetchone()[0]
              for table in ("flights", "events", "episodes", "findings", "files")}
    print(json.dumps(dict(parameters=result, clocks=[min(clocks), max(clocks)], counts=counts,
                          integrity=connection.execute("PRAGMA integrity_check").fetchone()[0])))


main()
