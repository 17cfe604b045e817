#!/usr/bin/env python3
"""Makes a folder of MP3 songs for the benchmarks, the same for the same numbers.

    makecorpus.py FOLDER COUNT AUDIO_BYTES [plain]

Tags of every version in turn (ID3v2.2, 2.3, 2.4, 1.1, 2.3 with 1.1, none); three songs in four
have no artwork, the rest 50 to 400 KB of it; none has with "plain"."""

import random
import struct
import sys
from pathlib import Path

FRAME = bytes.fromhex("fffb9064") + bytes(413)
WORDS = ("harbour light paper moon lantern slow water signal winter glass river stone café über "
         "night tram window arcade rain second floor öre ключ north").split()
GENRES = ["Rock", "(17)", "Folk", "Electronic", "(80)", "Jazz"]


def syncsafe(n):
    return bytes((n >> 21 & 127, n >> 14 & 127, n >> 7 & 127, n & 127))


def text(rng, words):
    return " ".join(rng.choice(WORDS) for _ in range(words)).title()


def encoded(value, version):
    try:
        return b"\0" + value.encode("latin-1")
    except UnicodeEncodeError:
        return b"\3" + value.encode("utf-8") if version == 4 else b"\1" + value.encode("utf-16")


def frame(name, body, version):
    if version == 2:
        return name + struct.pack(">I", len(body))[1:] + body
    size = syncsafe(len(body)) if version == 4 else struct.pack(">I", len(body))
    return name + size + b"\0\0" + body


NAMES = {
    "title": (b"TT2", b"TIT2", b"TIT2"), "artist": (b"TP1", b"TPE1", b"TPE1"),
    "album": (b"TAL", b"TALB", b"TALB"), "year": (b"TYE", b"TYER", b"TDRC"),
    "track": (b"TRK", b"TRCK", b"TRCK"), "genre": (b"TCO", b"TCON", b"TCON"),
}


def picture(rng, version):
    data = b"\xff\xd8\xff\xe0" + rng.randbytes(rng.randint(50_000, 400_000))
    if version == 2:
        return frame(b"PIC", b"\0JPG\3\0" + data, 2)
    return frame(b"APIC", b"\0image/jpeg\0\3\0" + data, version)


def id3v2(rng, version, fields, has_art):
    frames = b"".join(frame(NAMES[key][version - 2], encoded(value, version), version)
                      for key, value in fields.items())
    frames += frame((b"COM", b"COMM", b"COMM")[version - 2], b"\0eng\0" + b"ripped at home", version)
    if has_art:
        frames += picture(rng, version)
    frames += bytes(rng.choice((0, 256, 1024)))
    return b"ID3" + bytes((version, 0, 0)) + syncsafe(len(frames)) + frames


def id3v1(fields):
    def cut(key):
        return fields[key].encode("latin-1", "replace")[:30].ljust(30, b"\0")
    track = int(fields["track"].split("/")[0])
    return (b"TAG" + cut("title") + cut("artist") + cut("album") + fields["year"].encode()
            + bytes(29) + bytes((track, 17)))


def song(rng, number, audio_bytes, is_plain):
    fields = {"title": text(rng, 3), "artist": text(rng, 2), "album": text(rng, 2),
              "year": str(rng.randint(1960, 2020)), "track": f"{number % 12 + 1}/12",
              "genre": rng.choice(GENRES)}
    kind = number % 6
    version = (2, 3, 4, 0, 3, 0)[kind]
    has_art = not is_plain and version != 0 and number // 6 % 8 < 3
    head = id3v2(rng, version, fields, has_art) if version else b""
    tail = id3v1(fields) if kind in (3, 4) else b""
    return head + FRAME * (audio_bytes // len(FRAME)) + tail


def main():
    folder, count, audio_bytes = Path(sys.argv[1]), int(sys.argv[2]), int(sys.argv[3])
    is_plain = sys.argv[4:] == ["plain"]
    for number in range(count):
        rng = random.Random(number)
        path = folder / f"{number // 500:03}" / f"{number:05}.mp3"
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(song(rng, number, audio_bytes, is_plain))


if __name__ == "__main__":
    main()
