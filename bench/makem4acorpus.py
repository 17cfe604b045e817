#!/usr/bin/env python3
"""Makes a folder of M4A songs for the benchmarks, the same for the same numbers.

    makem4acorpus.py FOLDER COUNT AUDIO_BYTES SHAPE

Four minutes of sound each by their tables, so that the metadata list stands some 45 KB into
'moov', whatever AUDIO_BYTES 'mdat' holds. SHAPE is where 'moov' stands and what room it has:

    mixed     'moov' first and last in turn, with a 'free' atom; one song in four has artwork
    room      first, with a 'free' atom that takes up a grown tag
    last      behind 'mdat', without room
    tight     first, without room: a grown tag moves 'mdat'"""

import array
import random
import struct
import sys
from pathlib import Path

from makecorpus import text

SAMPLES = 240 * 44_100 // 1024
SAMPLES_A_CHUNK = 22
ROOM = 2048
GENRES = ["Rock", "Folk", "Electronic", "Jazz"]


def atom(name, *bodies):
    body = b"".join(bodies)
    return struct.pack(">I4s", len(body) + 8, name) + body


def full(name, *bodies):
    return atom(name, bytes(4), *bodies)


def table(numbers):
    packed = array.array("I", numbers)
    packed.byteswap()
    return packed.tobytes()


def sample_sizes(audio_bytes):
    """As uneven as real ones, and together as long as the sound."""
    rng = random.Random(audio_bytes)
    mean = audio_bytes // SAMPLES
    sizes = [mean + rng.randint(-mean // 3, mean // 3) for _ in range(SAMPLES - 1)]
    return [*sizes, max(audio_bytes - sum(sizes), 1)]


class Sound:
    def __init__(self, audio_bytes):
        sizes = sample_sizes(audio_bytes)
        self.bytes = random.Random(0).randbytes(sum(sizes))
        self.sizes = full(b"stsz", struct.pack(">II", 0, SAMPLES), table(sizes))
        self.chunks = [sum(sizes[:i]) for i in range(0, SAMPLES, SAMPLES_A_CHUNK)]

    def tables(self, start):
        """'stbl' of sound that begins at `start` of the file."""
        last = SAMPLES % SAMPLES_A_CHUNK or SAMPLES_A_CHUNK
        runs = struct.pack(">7I", 2, 1, SAMPLES_A_CHUNK, 1, len(self.chunks), last, 1)
        return atom(b"stbl", full(b"stsd", struct.pack(">I", 1), sample_entry()),
                    full(b"stts", struct.pack(">III", 1, SAMPLES, 1024)),
                    full(b"stsc", runs), self.sizes,
                    full(b"stco", struct.pack(">I", len(self.chunks)),
                         table(start + chunk for chunk in self.chunks)))


def sample_entry():
    decoder = bytes.fromhex("041140150001180001f4000001f400") + bytes.fromhex("05021210")
    descriptor = bytes((3, len(decoder) + 6, 0, 0, 0)) + decoder + bytes.fromhex("060102")
    head = bytes(6) + struct.pack(">H8xHHIHH", 1, 2, 16, 0, 44_100, 0)
    return atom(b"mp4a", head, full(b"esds", descriptor))


def value(kind, body):
    return atom(b"data", struct.pack(">II", kind, 0), body)


def free_form(name, body):
    return atom(b"----", full(b"mean", b"com.apple.iTunes"), full(b"name", name), value(1, body))


def items(rng, number, has_art):
    texts = {b"\xa9nam": text(rng, 3), b"\xa9ART": text(rng, 2), b"aART": text(rng, 2),
             b"\xa9alb": text(rng, 2), b"\xa9gen": rng.choice(GENRES),
             b"\xa9day": f"{rng.randint(1960, 2020)}-07-01T07:00:00Z",
             b"\xa9too": "iTunes 10.6.1.7, QuickTime 7.7"}
    yield from (atom(name, value(1, held.encode())) for name, held in texts.items())
    yield atom(b"trkn", value(0, struct.pack(">4H", 0, number % 12 + 1, 12, 0)))
    yield atom(b"disk", value(0, struct.pack(">3H", 0, 1, 1)))
    yield atom(b"tmpo", value(21, struct.pack(">H", 90 + number % 60)))
    yield atom(b"cpil", value(21, bytes((number % 2,))))
    yield atom(b"pgap", value(21, b"\0"))
    if has_art:
        yield atom(b"covr", value(13, b"\xff\xd8\xff\xe0"
                                  + rng.randbytes(rng.randint(50_000, 400_000))))
    yield free_form(b"iTunNORM", b" 00000A2B" * 10)
    yield free_form(b"iTunSMPB", b" 00000000" * 12)


def user_data(rng, number, has_art, room):
    handler = full(b"hdlr", bytes(4), b"mdirappl", bytes(9))
    rest = [atom(b"free", bytes(room))] if room else []
    return atom(b"udta", full(b"meta", handler, atom(b"ilst", *items(rng, number, has_art)), *rest))


def movie(sound, start, metadata):
    duration = SAMPLES * 1024
    matrix = table((0x10000, 0, 0, 0, 0x10000, 0, 0, 0, 0x40000000))
    media = atom(b"mdia",
                 full(b"mdhd", struct.pack(">4IHH", 0, 0, 44_100, duration, 0x55C4, 0)),
                 full(b"hdlr", bytes(4), b"soun", bytes(13)),
                 atom(b"minf", full(b"smhd", bytes(4)),
                      atom(b"dinf", full(b"dref", struct.pack(">I", 1), atom(b"url ", b"\0\0\0\1"))),
                      sound.tables(start)))
    track = atom(b"trak", atom(b"tkhd", b"\0\0\0\1", struct.pack(">5I", 0, 0, 1, 0, duration),
                               bytes(16), matrix, bytes(8)), media)
    head = full(b"mvhd", struct.pack(">4IIH", 0, 0, 44_100, duration, 0x10000, 256), bytes(10),
                matrix, bytes(24), struct.pack(">I", 2))
    return atom(b"moov", head, track, metadata)


def song(sound, number, shape):
    rng = random.Random(number)
    is_mixed = shape == "mixed"
    has_art = is_mixed and number // 2 % 4 == 0
    metadata = user_data(rng, number, has_art, ROOM if shape in ("mixed", "room") else 0)
    kind = atom(b"ftyp", b"M4A \0\0\0\0M4A mp42isom\0\0\0\0")
    mdat = atom(b"mdat", sound.bytes)
    if shape == "last" or (is_mixed and number % 2):
        return kind + mdat + movie(sound, len(kind) + 8, metadata)
    length = len(movie(sound, 0, metadata))
    return kind + movie(sound, len(kind) + length + 8, metadata) + mdat


def main():
    folder, count, audio_bytes = Path(sys.argv[1]), int(sys.argv[2]), int(sys.argv[3])
    sound = Sound(audio_bytes)
    for number in range(count):
        path = folder / f"{number // 500:03}" / f"{number:05}.m4a"
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(song(sound, number, sys.argv[4]))


if __name__ == "__main__":
    main()
