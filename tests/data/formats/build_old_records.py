#!/usr/bin/env python3
"""Builds the graph records of the sash drawings in this folder by hand, field by field.

sash-0.7.dxf was written by the build of the day the files were made. This script writes the
graph record of the same block as earlier builds filed it, for format versions 0.1 to 0.6, from
the record layout alone (not through the project's writers), and puts each into a copy of that
drawing as sash-0.N.dxf, with the instance states marked with the same version. Before writing
anything it builds the 0.7 record the same way and stops unless it is byte for byte the one in
sash-0.7.dxf.

The files are frozen: this was run once when they were made and must not be run again to
overwrite them. It refuses to replace a file that exists. The tests never run it.
"""
import math
import os
import struct
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
EOL = '\r\n'
IDENTIFIER = '{978e1977-7949-419c-8bae-8d918d45a3c1}'
GRAPH_HANDLE, STORAGE_HANDLE, BLOCK_HANDLE = 'D', 'E', '9'
FRAME, GLASS, SILL = 'A', 'B', 'C'  # the block's entities, in the stretch selection


def i32(value):
    return struct.pack('<i', value)


def real(value):
    return struct.pack('<d', value)


def flag(value):
    return bytes([1 if value else 0])


def point(x, y, z=0.0):
    return real(x) + real(y) + real(z)


def text(value):
    data = value.encode('utf-8')
    return i32(len(data)) + data


class Element:
    """One node: base fields, class, own data and the ids the data refers to."""

    def __init__(self, element_id, name, class_name, inputs, outputs, data, soft_pointers=()):
        self.element_id, self.name, self.class_name = element_id, name, class_name
        self.inputs, self.outputs, self.data = inputs, outputs, data
        self.soft_pointers = list(soft_pointers)


def parameter_fields(minor, points, value_sets, chain, property_visible, icon):
    """Points (grip id, defined position), value sets, two flags, the icon position from 0.1."""
    data = b''.join(i32(grip) + point(*at) for grip, at in points)
    data += b''.join(value_sets)
    data += flag(chain) + flag(property_visible)
    if minor >= 1:
        data += point(*icon)
    return data


def value_set(limit, name, description, minimum, maximum, increment, has_maximum, entries=()):
    return (i32(limit) + text(name) + text(description) + point(0, 0) + real(minimum) +
            real(maximum) + real(increment) + flag(has_maximum) + i32(len(entries)) +
            b''.join(real(e) for e in entries))


def grip_fields(minor, offset, direction, defined, cycling):
    """Offset, direction, defined position, the spare int32, cycling from 0.3."""
    data = point(*offset) + point(*direction) + point(*defined) + i32(0)
    if minor >= 3:
        data += flag(cycling)
    return data


def sash_elements(minor, settings):
    """The sash block's graph: a width with its grip and a stretch, a read-only size table with
    its grip and action, and from 0.6 on the settings element with the cycling order."""
    width = parameter_fields(
        minor, [(0, (0, 0)), (2, (600, 0))],
        [value_set(1, 'Width', 'Clear width of the sash', 300, 1500, 50, True)],
        False, True, (300, -100)) + i32(0)  # base position: start point
    width_grip = grip_fields(minor, (0, -50), (1, 0), (600, 0), False)
    # Angle offset 0, with the distance type (1: along X only) folded in from 0.7; multiplier;
    # one frame set holding the frame's and the glass's right corners and the sill's right end.
    angle = 1 * 2 * math.pi if minor >= 7 else 0.0
    stretch = i32(1) + i32(1) + real(angle) + real(1.0) + i32(1)
    stretch += i32(3) + i32(2) + i32(1) + i32(2) + i32(2) + i32(1) + i32(2) + i32(1) + i32(1)
    stretch += i32(0)  # no elements
    stretch += i32(1) + i32(2) + point(500, -100) + point(700, 1000)
    size = parameter_fields(minor, [(5, (300, -150))],
                            [value_set(0, 'Size', '', 0, 0, 0, False)], False, True, (0, 0))
    size += i32(1) + i32(1) + i32(0)  # one column: value 0 of the width
    size += i32(2) + text('Narrow') + text('Wide') + text('Custom')
    size += i32(1) + i32(5001) + real(600) + i32(1) + i32(5001) + real(1200)
    if minor >= 1:
        size += flag(True)  # read-only
    size_grip = grip_fields(minor, (0, 0), (0, 0), (300, -150), True)
    table = i32(4) + i32(0) + i32(0)
    elements = [
        Element(1, 'Linear1', 'JbCustBlockLinearParameter', [2, 4], [3], width),
        Element(2, 'LinearGrip1', 'JbCustBlockLinearGrip', [], [1], width_grip),
        Element(3, 'Stretch1', 'JbCustBlockStretchAction', [1], [], stretch,
                [FRAME, GLASS, SILL]),
        Element(4, 'Lookup1', 'JbCustBlockLookupParameter', [5], [6, 1], size),
        Element(5, 'TableGrip1', 'JbCustBlockLookupGrip', [], [4], size_grip),
        Element(6, 'Table1', 'JbCustBlockLookupAction', [4], [], table),
    ]
    if settings:
        # Cycling order: the size grip before the width grip.
        elements.append(Element(7, 'Settings1', 'JbCustBlockSettingsElement', [], [],
                                i32(2) + i32(5) + i32(2)))
    return elements


def tag(code, value):
    if isinstance(value, bool):
        value = '%6d' % value
    elif isinstance(value, int):
        value = '%9d' % value
    return '%3d%s%s%s' % (code, EOL, value, EOL)


def graph_record(minor, settings):
    """The JB_BLOCK_GRAPH record of format 0.minor, from its 0 tag to the next record."""
    elements = sash_elements(minor, settings)
    out = tag(0, 'JB_BLOCK_GRAPH') + tag(5, GRAPH_HANDLE) + tag(330, STORAGE_HANDLE)
    out += tag(100, 'JbDbCustBlockGraph')
    out += tag(90, 0) + tag(90, minor) + tag(90, elements[-1].element_id) + tag(330, BLOCK_HANDLE)
    out += tag(90, len(elements))
    for e in elements:
        out += tag(90, e.element_id) + tag(290, True) + tag(100, e.name)
        for connections in (e.inputs, e.outputs):
            out += tag(90, len(connections)) + ''.join(tag(90, c) for c in connections)
        out += tag(100, e.class_name) + tag(90, len(e.data))
        for start in range(0, len(e.data), 127):
            out += tag(310, e.data[start:start + 127].hex().upper())
        # Soft owners, hard owners, soft pointers, hard pointers.
        out += tag(90, 0) + tag(90, 0)
        out += tag(90, len(e.soft_pointers)) + ''.join(tag(330, h) for h in e.soft_pointers)
        out += tag(90, 0)
    if minor >= 2:
        out += tag(100, IDENTIFIER)
    return out


def record_span(drawing, name):
    start = drawing.index(tag(0, name))
    end = drawing.index(EOL + tag(0, '')[:3] + EOL, start) + len(EOL)
    return start, end


def with_version(drawing, minor):
    """The drawing with its graph record filed at 0.minor and its states marked so."""
    start, end = record_span(drawing, 'JB_BLOCK_GRAPH')
    drawing = drawing[:start] + graph_record(minor, settings=minor >= 6) + drawing[end:]
    trailer = tag(1, 'VERSION') + tag(90, 7)
    assert drawing.count(trailer) == 2, 'two instance states end in VERSION 7'
    return drawing.replace(trailer, tag(1, 'VERSION') + tag(90, minor))


def write_new(name, content):
    path = os.path.join(HERE, name)
    if os.path.exists(path):
        sys.exit('%s exists: the reference files are frozen and never rebuilt' % name)
    with open(path, 'w', newline='') as out:
        out.write(content)


def main():
    with open(os.path.join(HERE, 'sash-0.7.dxf'), newline='') as source:
        current = source.read()
    start, end = record_span(current, 'JB_BLOCK_GRAPH')
    if current[start:end] != graph_record(7, settings=True):
        sys.exit('the record built by hand for 0.7 differs from the one in sash-0.7.dxf')
    for minor in range(1, 7):
        write_new('sash-0.%d.dxf' % minor, with_version(current, minor))


if __name__ == '__main__':
    main()
