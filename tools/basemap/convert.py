#!/usr/bin/env python3
"""Creates resources/basemap/world.bin from the npm package "world-atlas".

    npm pack world-atlas@2.0.2 && tar xzf world-atlas-2.0.2.tgz
    tools/basemap/convert.py package resources/basemap/world.bin

The layout of the file is in docs/map.md. Needed only for newer data: the result is committed.
"""

import json
import struct
import sys
import zlib
from collections import defaultdict
from pathlib import Path

STEPS_PER_DEGREE = 100000 / 360
POLAR = 1  # the ring runs around the pole and is closed over it
ICE = 2


class Topology:
    def __init__(self, path):
        data = json.loads(Path(path).read_text(encoding="utf-8"))
        scale_x, scale_y = data["transform"]["scale"]
        move_x, move_y = data["transform"]["translate"]
        self.objects = data["objects"]
        self.arcs = []
        for arc in data["arcs"]:
            x = y = 0
            points = []
            for dx, dy in arc:
                x += dx
                y += dy
                points.append((x * scale_x + move_x, y * scale_y + move_y))
            self.arcs.append(points)

    def ring(self, indices):
        points = []
        for index in indices:
            arc = self.arcs[index] if index >= 0 else self.arcs[~index][::-1]
            points += arc[1:] if points else arc
        return points


def polygons(geometry):
    if geometry["type"] == "Polygon":
        yield geometry["arcs"]
    elif geometry["type"] == "MultiPolygon":
        yield from geometry["arcs"]


def unwrapped(points):
    """The points with longitudes continued beyond 180 degrees, so that no step exceeds half a turn."""
    result = []
    longitude = points[0][0]
    for x, latitude in points:
        longitude += (x - longitude + 180) % 360 - 180
        result.append((longitude, latitude))
    return result


def land_rings(topology):
    rings = []
    for geometry in topology.objects["land"]["geometries"]:
        for polygon in polygons(geometry):
            for indices in polygon:
                points = unwrapped(topology.ring(indices))
                if all(latitude < -89 for _, latitude in points):
                    continue  # artefact: a ring around the pole itself
                flags = 0
                if abs(points[-1][0] - points[0][0]) > 180:
                    flags |= POLAR
                if all(latitude < -60 for _, latitude in points):
                    flags |= ICE
                rings.append((flags, points))
    return rings


def border_lines(topology):
    """The arcs that two countries share."""
    users = defaultdict(set)
    for number, geometry in enumerate(topology.objects["countries"]["geometries"]):
        for polygon in polygons(geometry):
            for indices in polygon:
                for index in indices:
                    users[index if index >= 0 else ~index].add(number)
    return [(0, unwrapped(topology.arcs[arc])) for arc in sorted(users) if len(users[arc]) > 1]


def varint(value):
    value = value << 1 if value >= 0 else (-value << 1) - 1
    result = bytearray()
    while value > 127:
        result.append(value & 127 | 128)
        value >>= 7
    result.append(value)
    return bytes(result)


def encoded(lines):
    result = bytearray(struct.pack(">I", len(lines)))
    for flags, points in lines:
        steps = [(round(x * STEPS_PER_DEGREE), round(y * STEPS_PER_DEGREE)) for x, y in points]
        kept = [step for number, step in enumerate(steps) if not number or step != steps[number - 1]]
        result += struct.pack(">BI", flags, len(kept))
        last = (0, 0)
        for step in kept:
            result += varint(step[0] - last[0]) + varint(step[1] - last[1])
            last = step
    return bytes(result)


def main():
    if len(sys.argv) != 3:
        print(__doc__, file=sys.stderr)
        return 2
    package, target = Path(sys.argv[1]), Path(sys.argv[2])
    coarse = Topology(package / "land-110m.json")
    fine = Topology(package / "countries-50m.json")
    raw = (b"TWM1" + encoded(land_rings(coarse)) + encoded([])
           + encoded(land_rings(fine)) + encoded(border_lines(fine)))
    target.write_bytes(struct.pack(">I", len(raw)) + zlib.compress(raw, 9))
    print(f"{target}: {target.stat().st_size} bytes")
    return 0


if __name__ == "__main__":
    sys.exit(main())
