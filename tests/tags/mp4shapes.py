"""MP4 songs as other programs leave them behind: sound from ffmpeg, the rest put together here."""

import re
from struct import pack, unpack_from

from outside import make_sound

CONTAINERS = set("moov trak mdia minf stbl udta meta ilst edts moof traf mvex mfra".split())
ZERO = "\0\0\0\0"
FIRST_CHILDREN = (b"hdlr", b"ilst", b"free", b"ID32")


def atom(name, *bodies):
    body = b"".join(bodies)
    return pack(">I", 8 + len(body)) + name.encode("latin-1") + body


def atom64(name, *bodies):
    body = b"".join(bodies)
    return pack(">I", 1) + name.encode("latin-1") + pack(">Q", 16 + len(body)) + body


def atoms(data, start=0, end=None, nested=False):
    """Name, start, start of the body and end of each atom."""
    end = len(data) if end is None else end
    while end - start >= 8:
        size, name = unpack_from(">I", data, start)[0], data[start + 4:start + 8].decode("latin-1")
        body = start + 8
        if size == 1:
            size, body = unpack_from(">Q", data, body)[0], body + 8
        elif size == 0:
            size = 8 if nested and name == ZERO else end - start
        yield name, start, body, min(start + size, end)
        start += size


def leaves(data, start=0, end=None, path=""):
    """The path and what is inside of every atom that is no container, large ones in part, and
    the bytes that end a container but are no atom."""
    end = len(data) if end is None else end
    for name, _, body, start in atoms(data, start, end, path != ""):
        here = f"{path}:{name}"
        if name in CONTAINERS:
            if name == "meta" and data[body + 4:body + 8] not in FIRST_CHILDREN:
                yield here, bytes(data[body:body + 4])
                body += 4
            yield from leaves(data, body, start, here)
        else:
            yield here, bytes(data[body:min(start, body + (1 << 20))])
    if path and start < end:
        yield path, bytes(data[start:end])


# The metadata list.

def value(kind, content):
    return atom("data", pack(">II", kind, 0), content)


def text(name, content):
    return atom(name, value(1, content.encode()))


def freeform(name, content):
    return atom("----", atom("mean", bytes(4), b"com.apple.iTunes"),
                atom("name", bytes(4), name.encode()), value(1, content.encode()))


def handler(kind="mdir", vendor="appl"):
    return atom("hdlr", bytes(8), f"{kind}{vendor}".encode(), bytes(9))


def user_data(*items, behind=b"", beside=b"", head=bytes(4)):
    """`behind`: the list; `beside`: the 'meta' atom around it."""
    return atom("udta", atom("meta", head, handler(), atom("ilst", *items), behind), beside)


TITLE, ARTIST = text("\xa9nam", "Harbour Lights"), text("\xa9ART", "Nila Oster")
NUMBERS = [atom("trkn", value(0, pack(">4H", 0, 2, 9, 0))),
           atom("tmpo", value(21, pack(">H", 120))), atom("cpil", value(21, b"\1")),
           atom("disk", value(0, pack(">3H", 0, 1, 2)))]
OTHERS = [text("aART", "Various"), text("\xa9alb", "Quiet Rooms"), text("\xa9day", "1998-05-01"),
          text("\xa9gen", "Jazz"), text("\xa9lyr", "la\nla"), text("\xa9too", "Ω tool"),
          freeform("iTunNORM", "0001"), freeform("mood", "ruhig Ω"), *NUMBERS]
ITEMS = [TITLE, ARTIST, *OTHERS]
QUICKTIME_TEXT = atom("\xa9nam", b"\0\5\x55\xc4Title")
TIGHT, ROOMY = user_data(*ITEMS), user_data(*ITEMS, behind=atom("free", bytes(3000)))


def metadata_shapes(png):
    """What the name says of 'udta', and its bytes."""
    cover = atom("covr", atom("name", b"a.png"), value(14, png))
    return {
        "no udta": b"", "empty udta": atom("udta"), "empty list": user_data(),
        "no list": atom("udta", atom("meta", bytes(4), handler())),
        "udta twice": atom("udta", QUICKTIME_TEXT) + TIGHT,
        "udta ends in zeros": user_data(*ITEMS, beside=bytes(4)),
        "QuickTime text": atom("udta", QUICKTIME_TEXT, TIGHT[8:]),
        "QuickTime text behind": user_data(*ITEMS, beside=QUICKTIME_TEXT),
        "meta without version": user_data(*ITEMS, head=b""),
        "free behind meta": user_data(*ITEMS, beside=atom("free", bytes(400))),
        "name in covr": user_data(*ITEMS, cover),
        "free before the list": atom("udta", atom("meta", bytes(4), handler(), atom(
            "free", bytes(500)), atom("ilst", *ITEMS))),
        "64-bit meta": atom("udta", atom64("meta", bytes(4), handler(), atom("ilst", *ITEMS))),
    }


# The file around it.

def top(song):
    return {name: song[start:end] for name, start, _, end in atoms(song)}


def shifted(song, by):
    """The places in all chunk tables, moved."""
    song = bytearray(song)
    for table in re.finditer(rb"stco|co64", bytes(song)):
        at, form, width = table.end() + 8, *((">I", 4) if table[0] == b"stco" else (">Q", 8))
        for at in range(at, at + width * unpack_from(">I", song, table.end() + 4)[0], width):
            song[at:at + width] = pack(form, unpack_from(form, song, at)[0] + by)
    return bytes(song)


def children(whole):
    return [whole[start:end] for _, start, _, end in atoms(whole, 8)]


def with_user_data(song, user_data):
    """`song` ends with 'moov'; so does what comes back. The list of chapters stays."""
    moov = top(song)["moov"]
    kept = [part for part in children(moov) if part[4:8] != b"udta"]
    old = [part for part in children(moov) if part[4:8] == b"udta"]
    chapters = [part for part in children(b"".join(old)) if part[4:8] == b"chpl"]
    if chapters and user_data:
        user_data = atom("udta", user_data[8:], *chapters)
    return song[:-len(moov)] + atom("moov", *kept, user_data)


def moov_first(song):
    parts = top(song)
    head, moov = parts["ftyp"], parts["moov"]
    return head + shifted(moov, len(moov)) + song[len(head):len(song) - len(moov)]


def chapters_first(song):
    moov = top(song)["moov"]
    tracks = [part for part in children(moov) if part[4:8] == b"trak"]
    others = [part for part in children(moov) if part[4:8] != b"trak"]
    return song[:-len(moov)] + atom("moov", others[0], *reversed(tracks), *others[1:])


def make_sounds(folder):
    """Songs that end with 'moov', and fragmented ones, which cannot."""
    chapters = folder / "chapters.txt"
    chapters.write_text(";FFMETADATA1\n" + "".join(
        f"[CHAPTER]\nTIMEBASE=1/1000\nSTART={start}\nEND={end}\ntitle={name}\n"
        for start, end, name in ((0, 400, "One"), (400, 1000, "Two"))))
    made = {}

    def make(name, *options):
        path = folder / f"{name}.mp4"
        make_sound("sine=440:d=1", *options, "-c:a", "aac", "-b:a", "32k", "-fflags", "+bitexact",
                   path)
        made[name] = path.read_bytes()

    make("plain")
    make("chapters", "-i", chapters, "-map", "0:a", "-map_chapters", "1")
    make("two tracks", "-f", "lavfi", "-i", "sine=880:d=1", "-map", "0", "-map", "1")
    make("video", "-f", "lavfi", "-i", "testsrc=s=64x64:r=5:d=1", "-map", "0", "-map", "1", "-c:v",
         "mpeg4")
    sounds = dict(made, **{"chapters first": chapters_first(made["chapters"])})
    made.clear()
    titled = ("-metadata", "title=Harbour Lights", "-metadata", "artist=Nila Oster",
              "-frag_duration", "300000", "-movflags")
    for name, flags in {"fragmented": "", "based on moof": "+default_base_moof",
                        "one sidx": "+default_base_moof+global_sidx", "dash": "+dash"}.items():
        make(name, *titled, "frag_keyframe+empty_moov" + flags)
    return sounds, made
