"""A strict reading of AVI files: every byte must belong to a chunk that may stand there, and every number must agree
with what is really in the file. Whatever is wrong raises an AssertionError that says where."""
import os
import struct

MAIN_HEADER = ("microseconds", "bytesPerSecond", "padding", "flags", "frames", "initial", "streams", "buffer", "width",
               "height")
STREAM_HEADER = ("type", "handler", "flags", "priority", "language", "initial", "scale", "rate", "start", "length",
                 "buffer", "quality", "sampleSize", "left", "top", "right", "bottom")
HAS_INDEX = 0x10
KEY = 0x10


def check(condition, text):
    if not condition:
        raise AssertionError(text)


class Chunk:
    def __init__(self, file, offset, end):
        self.file, self.offset = file, offset
        check(offset + 8 <= end, f"{offset}: a chunk's header is cut off")
        self.tag, self.size = struct.unpack("<4sI", file.at(offset, 8))
        self.start = offset + 8
        self.end = self.start + self.size
        check(self.end + self.size % 2 <= end, f"{offset}: {self.tag} reaches beyond what holds it")

    def kind(self):
        return self.file.at(self.start, 4)

    def bytes(self):
        return self.file.at(self.start, self.size)

    def chunks(self):
        """The chunks of a list, which fill it exactly."""
        return list(self.file.chunks(self.start + 4, self.end))


class Avi:
    """One video stream: `main`, `stream`, `format`, `samples` (position -> bytes), `length` in positions."""

    def __init__(self, path, has_samples=True):
        self.stream_file = open(path, "rb")
        try:
            self.size = os.path.getsize(path)
            self.read()
            self.samples = {position: self.at(offset + 8, size)
                            for position, (offset, size) in enumerate(self.positions) if size and has_samples}
        finally:
            self.stream_file.close()

    @classmethod
    def structure(cls, path):
        """All but the samples, for files that memory does not hold."""
        return cls(path, has_samples=False)

    def at(self, offset, size):
        self.stream_file.seek(offset)
        data = self.stream_file.read(size)
        check(len(data) == size, f"{offset}: {size} bytes are not there")
        return data

    def chunks(self, start, end):
        while start < end:
            chunk = Chunk(self, start, end)
            yield chunk
            if chunk.size % 2:
                check(self.at(chunk.end, 1) == b"\0", f"{chunk.end}: the padding is not 0")
            start = chunk.end + chunk.size % 2
        check(start == end, f"{start}: not where the list ends")

    def read(self):
        self.positions = []  # (chunk header's offset, size) for each position
        parts = list(self.chunks(0, self.size))
        check([part.tag for part in parts] == [b"RIFF"] * len(parts), "every part is a RIFF chunk")
        check(parts[0].kind() == b"AVI ", "the first part is AVI")
        self.read_first(parts[0])
        self.part_lengths = [len(self.positions)]
        for part in parts[1:]:
            check(part.kind() == b"AVIX", "further parts are AVIX")
            self.read_further(part)
        self.part_ends = [part.end for part in parts]
        self.length = len(self.positions)
        self.check_counts(len(parts))

    def read_first(self, riff):
        tags = [(chunk.tag, chunk.kind() if chunk.tag == b"LIST" else None) for chunk in riff.chunks()]
        check(tags == [(b"LIST", b"hdrl"), (b"LIST", b"movi"), (b"idx1", None)], f"the first part holds {tags}")
        header, movi, index = riff.chunks()
        avih, strl, odml = header.chunks()
        check((avih.tag, avih.size, strl.kind(), odml.kind()) == (b"avih", 56, b"strl", b"odml"), "hdrl")
        self.main = dict(zip(MAIN_HEADER, struct.unpack("<10I16x", avih.bytes()), strict=True))
        strh, strf, indx = strl.chunks()
        check((strh.tag, strh.size, strf.tag) == (b"strh", 56, b"strf"), "strl")
        self.stream = dict(zip(STREAM_HEADER, struct.unpack("<4sIIHHIIIIIIII4h", strh.bytes()), strict=True))
        self.format = strf.bytes()
        (dmlh,) = odml.chunks()
        check((dmlh.tag, dmlh.size) == (b"dmlh", 248), "odml")
        self.total, = struct.unpack("<I244x", dmlh.bytes())
        self.super_index = indx.bytes() if indx.tag == b"indx" else None
        check(indx.tag == b"indx" or (indx.tag == b"JUNK" and not any(indx.bytes())), f"{indx.tag} in strl")
        self.standard = []
        self.read_movi(movi, 0)
        self.check_old_index(index, movi)

    def read_further(self, riff):
        (movi,) = riff.chunks()
        check((movi.tag, movi.kind()) == (b"LIST", b"movi"), "a further part holds samples")
        before = len(self.positions)
        self.read_movi(movi, riff.offset)
        self.part_lengths.append(len(self.positions) - before)

    def read_movi(self, movi, part):
        before = len(self.positions)
        chunks = movi.chunks()
        if chunks and chunks[-1].tag == b"ix00":
            index = chunks.pop()
        else:
            index = None
        for chunk in chunks:
            check(chunk.tag == b"00db", f"{chunk.offset}: {chunk.tag} among the samples")
            self.positions.append((chunk.offset, chunk.size))
        if index:
            self.check_standard_index(index, self.positions[before:])
        else:
            check(part == 0, "a further part has no index")

    def check_old_index(self, index, movi):
        entries = list(struct.iter_unpack("<4sIII", index.bytes()))
        expected = [(b"00db", KEY if size else 0, offset - movi.start, size) for offset, size in self.positions]
        check(entries == expected, "idx1 does not fit the samples")

    def check_standard_index(self, index, positions):
        data = index.bytes()
        longs, sub, kind, count, tag, base, zero = struct.unpack("<HBBI4sQI", data[:24])
        check((longs, sub, kind, count, tag, zero) == (2, 0, 1, len(positions), b"00db", 0), "ix00's header")
        entries = [(base + offset - 8, size & 0x7FFFFFFF, size >> 31) for offset, size in struct.iter_unpack("<II", data[24:])]
        check(entries == [(offset, size, 0 if size else 1) for offset, size in positions], "ix00 does not fit the samples")
        self.standard.append((index.offset, index.size + 8, len(positions)))

    def check_counts(self, parts):
        check(self.main["flags"] & HAS_INDEX, "the index is not announced")
        check(self.main["streams"] == 1, "one stream")
        check(self.main["frames"] == self.part_lengths[0], "avih counts the first part")
        check(self.stream["length"] == self.length, "strh counts all parts")
        check(self.total == self.length, "dmlh counts all parts")
        check(self.stream["type"] == b"vids", "a video stream")
        largest = max((size for _, size in self.positions), default=0)
        check(self.main["buffer"] >= largest and self.stream["buffer"] >= largest, "the suggested buffer is too small")
        if parts == 1:
            check(self.super_index is None and not self.standard, "one part needs no super index")
            return
        longs, sub, kind, count, tag = struct.unpack("<HBBI4s", self.super_index[:12])
        check((longs, sub, kind, count, tag) == (4, 0, 0, parts, b"00db"), "indx's header")
        entries = list(struct.iter_unpack("<QII", self.super_index[24:24 + 16 * count]))
        check(entries == self.standard, "indx does not fit the indexes")
        check(not any(self.super_index[24 + 16 * count:]), "indx ends in zeros")
