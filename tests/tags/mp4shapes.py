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
STRAY_TAG = b"ID3\4\0\0\0\0\0\x14" + bytes(20)
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
        "room, udta ends in zeros": user_data(*ITEMS, behind=atom("free", bytes(99)),
                                              beside=bytes(4)),
        "QuickTime text": atom("udta", QUICKTIME_TEXT, TIGHT[8:]),
        "QuickTime text behind": user_data(*ITEMS, beside=QUICKTIME_TEXT),
        "meta without version": user_data(*ITEMS, head=b""),
        "zero atom in the list": user_data(*ITEMS, bytes(8), freeform("behind", "it")),
        "zero atom ends the list": user_data(*ITEMS, bytes(8)),
        "small free behind meta": user_data(*ITEMS, beside=atom("free", bytes(8))),
        "free behind meta": user_data(*ITEMS, beside=atom("free", bytes(400))),
        "empty free beside artwork": user_data(*ITEMS, cover, behind=atom("free")),
        "name in covr": user_data(*ITEMS, cover),
        "two pictures": user_data(*ITEMS, atom("covr", value(14, png), value(14, png[:-9]))),
        "cover first, in room": user_data(cover, *ITEMS, behind=atom("free", bytes(900))),
        "duplicates": user_data(TITLE, cover, *ITEMS, text("\xa9nam", "Other"), cover),
        "not UTF-8": user_data(TITLE, atom("\xa9ART", value(1, b"Bj\xf6rk")), *OTHERS),
        "short year": user_data(TITLE, text("\xa9day", "98"), ARTIST),
        "other text types": user_data(TITLE, atom("\xa9ART", value(2, "Ω".encode("utf-16-be"))),
                                      *OTHERS),
        "several values": user_data(TITLE, atom("\xa9ART", value(1, b"One"), value(1, b"Two")),
                                    *OTHERS),
        "short track": user_data(TITLE, atom("trkn", value(0, pack(">3H", 0, 4, 5)))),
        "track without value": user_data(TITLE, atom("trkn", value(0, b"")), ARTIST),
        "items without data": user_data(atom("\xa9nam"), atom("trkn"), ARTIST, atom("covr")),
        "genre number": user_data(TITLE, atom("gnre", value(0, b"\0\x12")), ARTIST),
        "free before the list": atom("udta", atom("meta", bytes(4), handler(), atom(
            "free", bytes(500)), atom("ilst", *ITEMS))),
        "64-bit data": user_data(TITLE, atom("\xa9ART", atom64("data", b"\0\0\0\1", bytes(4),
                                                              b"Long")), *OTHERS),
        "64-bit meta": atom("udta", atom64("meta", bytes(4), handler(), atom("ilst", *ITEMS))),
    }


# The file around it.

def top(song):
    return {name: song[start:end] for name, start, _, end in atoms(song)}


def rebuilt(data, change, path=""):
    """Each leaf is replaced by what `change` makes of its path and bytes."""
    parts = []
    for name, start, body, end in atoms(data):
        here = f"{path}:{name}"
        parts.append(atom(name, rebuilt(data[body:end], change, here))
                     if name in CONTAINERS - {"meta"} else change(here, data[start:end]))
    return b"".join(parts)


def shifted(song, by, changed_from=0):
    """The places in all chunk tables from there on, moved."""
    song = bytearray(song)
    for table in re.finditer(rb"stco|co64", bytes(song)):
        at, form, width = table.end() + 8, *((">I", 4) if table[0] == b"stco" else (">Q", 8))
        for at in range(at, at + width * unpack_from(">I", song, table.end() + 4)[0], width):
            place = unpack_from(form, song, at)[0]
            song[at:at + width] = pack(form, place + (by if place >= changed_from else 0))
    return bytes(song)


def wide_offsets(whole):
    entries = unpack_from(f">{(len(whole) - 16) // 4}I", whole, 16)
    return atom("co64", whole[8:16], pack(f">{len(entries)}Q", *entries))


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


def moov_first(song, between=b""):
    parts = top(song)
    head, moov = parts["ftyp"], parts["moov"]
    rest = song[len(head):len(song) - len(moov)]
    return head + shifted(moov, len(moov) + len(between)) + between + rest


def chapters_first(song):
    moov = top(song)["moov"]
    tracks = [part for part in children(moov) if part[4:8] == b"trak"]
    others = [part for part in children(moov) if part[4:8] != b"trak"]
    return song[:-len(moov)] + atom("moov", others[0], *reversed(tracks), *others[1:])


def split_mdat(song, between):
    """The sound from the second half on stands in an 'mdat' of its own, `between` before it."""
    mdat = song.index(b"mdat") - 4
    moov = len(song) - len(top(song)["moov"])
    tables = [entry for name, body in leaves(song) if name.endswith(":stco")
              for entry in unpack_from(f">{(len(body) - 8) // 4}I", body, 8)]
    cut = sorted(tables)[len(tables) // 2]
    return (song[:mdat] + atom("mdat", song[mdat + 8:cut]) + between
            + atom("mdat", song[cut:moov]) + shifted(song[moov:], 8 + len(between), cut))


def mdat_replaced(song, head, tail=b""):
    """`head` stands in the place of the 'mdat' header; 'moov' comes first."""
    song = moov_first(song)
    at = song.index(b"mdat") - 4
    return shifted(song[:at], len(head) - 8) + head + song[at + 8:] + tail


def file_shapes(song):
    """`song` ends with 'moov'. What can be written, and what is refused, with the reason."""
    def changed(name, change):
        return rebuilt(song, lambda path, whole: change(whole) if path.endswith(name) else whole)

    mdat = len(top(song)["mdat"])
    wide, first = changed(":stco", wide_offsets), moov_first(song)
    padding = atom("free", bytes(20)) + atom("wide") + atom("uuid", b"unknown atoms stay")
    bomb = b""
    for _ in range(80):
        bomb = atom("udta", bomb)
    written = {
        "co64": wide, "co64, moov first": moov_first(wide),
        "64-bit mdat": mdat_replaced(song, pack(">I4sQ", 1, b"mdat", mdat + 8)),
        "open mdat": mdat_replaced(song, b"\0\0\0\0mdat"),
        "truncated": first[:-500],
        "free between": moov_first(song, padding), "free at the end": song + padding,
        "two mdats": split_mdat(song, b""), "two mdats, moov first": moov_first(
            split_mdat(song, padding)),
        "stray ID3 tag": STRAY_TAG + song,
        "other metadata": moov_first(changed(":mdhd", lambda whole: whole + atom(
            "meta", bytes(4), handler("ID32", ZERO), atom("ID32", bytes(9)))))
        + atom("meta", bytes(4), handler("null", ZERO), atom("xml ", b"<a/>")),
    }
    refused = {
        "no chunk table": (moov_first(changed(":stco", lambda whole: b"")), "chunk offsets"),
        "stray ID3 tag": (STRAY_TAG + moov_first(changed(":stco", lambda whole: b"")),
                          "chunk offsets"),
        "chunk table lies": (first.replace(b"stco\0\0\0\0\0\0", b"stco\0\0\0\0\0\x7f"),
                             "chunk offsets"),
        "still images": (first + atom("meta", bytes(4), handler("pict", ZERO), atom(
            "iloc", bytes(8))), "chunk offsets"),
        "no moov": (song[:-len(top(song)["moov"])] + atom("udta", atom("mdia", bytes(5000))),
                    "moov"),
        "cut in moov": (song[:-70], "bad size atom"),
        "nested": (with_user_data(song, bomb), "nested"),
        "leaf too large": (moov_first(changed(":mvhd", lambda whole: b"\0\1" + whole[2:])),
                           "bad size atom"),
        "foreign list": (with_user_data(song, atom("udta", atom("meta", bytes(4), handler(
            "ID32", ZERO)))), "metadata"),
    }
    return written, refused


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
