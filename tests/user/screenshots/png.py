"""Reads what a picture file is made of."""
import struct
import zlib


def png_parts(path):
    """The parts of a PNG by their kinds, in the order of the file, those of one kind joined; their sums are right."""
    with open(path, "rb") as file:
        data = file.read()
    assert data[:8] == b"\x89PNG\r\n\x1a\n", path
    parts = {}
    at = 8
    while at < len(data):
        length, kind = struct.unpack(">I4s", data[at:at + 8])
        body = data[at + 8:at + 8 + length]
        assert zlib.crc32(kind + body) == struct.unpack(">I", data[at + 8 + length:at + 12 + length])[0], path
        parts[kind] = parts.get(kind, b"") + body
        at += 12 + length
    return parts
