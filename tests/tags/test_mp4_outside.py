"""Every change of tags in every shape of MP4 song: other programs see it, and nothing is lost."""

import base64
import json
import os
import re
import subprocess
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path
from struct import pack, unpack_from

import mutagen
import mutagen.mp4

from mp4shapes import (ROOMY, TIGHT, leaves, make_sounds, metadata_shapes, moov_first, shifted,
                       top, with_user_data)
from outside import (FIELDS, LATIN, PROGRAM, UNICODE, check, make_sound, named, report_of, run)

MUTAGEN, OF_MUTAGEN = named("\xa9nam,\xa9ART,\xa9alb,\xa9day,trkn,\xa9gen,tmpo,\xa9lyr,cpil")
_, OF_FFMPEG = named("title,artist,album,date,track,genre,-,lyrics,compilation")
_, OF_EXIFTOOL = named("Title,Artist,Album,ContentCreateDate,TrackNumber,Genre,BeatsPerMinute,"
                       "Lyrics,Compilation")
_, OF_KID3 = named("Title,Artist,Album,Date,Track Number,Genre,BPM,Lyrics,Compilation")
OF_MUTAGEN["covr"] = OF_EXIFTOOL["CoverArt"] = "artwork"
ITEM_OF = MUTAGEN | {"artwork": "covr"}

NOTHING = dict.fromkeys(FIELDS, "") | {"compilation": "no", "artwork": ""}
CHANGES = {
    "every field": LATIN | {"compilation": "yes", "artwork": "small.png"},
    "grown": UNICODE | {"lyrics": "Zeile Ω\n" * 200, "compilation": "no", "artwork": "large.jpg"},
    "shrunk": {field: "1" for field in FIELDS[:8]} | {"year": "1999"},
    "one grown, one shrunk": {"title": "Harbour Lights at Night", "artist": "N"},
    "picture": {"artwork": "large.jpg"},
    "no picture": {"artwork": ""},
    "removed": NOTHING,
}

# What each reader shows: by our fields where we have one, and all else that it finds.


def by_ffmpeg(path):
    """The sums of the packets of all tracks, the chapters, and the fields."""
    notes = path.with_suffix(".notes")
    sums = run("ffmpeg", "-v", "fatal", "-y", "-i", path, "-map", "0:a", "-map", "0:V?", "-map",
               "0:d?", "-c", "copy", "-f", "streamhash", "-hash", "md5", "-", "-f", "ffmetadata",
               notes).decode()
    head, *chapters = notes.read_text(errors="surrogateescape").split("\n[")
    pairs = re.findall(r"^([^;=\n]+)=((?:\\(?:.|\n)|[^\\\n])*)$", head, re.M)
    fields = {OF_FFMPEG.get(key, key): re.sub(r"\\(.|\n)", r"\1", value) for key, value in pairs}
    return {"sums": sums, "chapters": chapters} | fields


def by_mutagen(path):
    try:
        tags = mutagen.mp4.MP4(path).tags or {}
    except mutagen.MutagenError:
        return {}
    seen = {OF_MUTAGEN.get(key, key): values for key, values in tags.items()}
    one = {"track": lambda value: "/".join(str(number) for number in value[0] if number),
           "bpm": lambda value: str(value[0]), "compilation": lambda value: str(int(value)),
           "artwork": lambda value: [bytes(picture) for picture in value]}
    return {field: one.get(field, lambda value: "\n\n".join(map(str, value)))(values)
            for field, values in seen.items() if values}


def by_kid3(path):
    shown = json.loads(run("kid3-cli", "-c", '{"method":"get","params":["all"]}', path))
    frames = shown["result"]["taggedFile"].get("tag2", {}).get("frames", [])
    return {OF_KID3[frame["name"]]: str(frame["value"]) for frame in frames
            if frame["name"] in OF_KID3 and frame["value"] != ""}


def by_exiftool(paths):
    """All files at once: it is slow to start."""
    names = paths[0].parent / "names"
    names.write_text("".join(f"{path}\n" for path in paths))
    shown = subprocess.run(["exiftool", "-j", "-b", "-api", "largefilesupport=1", "-ItemList:all",
                            "-UserData:all", "-@", names], capture_output=True).stdout
    one = {"TrackNumber": lambda value: str(value).replace(" of ", "/"),
           "Compilation": lambda value: {"Yes": "1"}.get(value, str(value)),
           "CoverArt": lambda value: [base64.b64decode(picture.removeprefix("base64:")) for picture
                                      in (value if isinstance(value, list) else [value])]}
    return {entry.pop("SourceFile"): {
        OF_EXIFTOOL.get(key, key): one.get(key, str)(value) for key, value in entry.items()}
        for entry in json.loads(shown)}


# What other programs do not show, or make up.
HIDDEN = {"ffmpeg": ("bpm", "artwork"), "kid3": ("artwork",)}
ODD = {"QuickTime text": ["title"], "QuickTime text behind": ["title"], "udta twice": ["title"]}


def with_change(seen, fields, hidden=()):
    """What a reader shall see after the change, that saw this before."""
    after = {key: value for key, value in seen.items() if key not in fields}
    for field, value in fields.items():
        if field == "compilation":
            value = {"yes": "1", "no": ""}[value]
        elif field == "artwork" and value:
            value = [Path(value).read_bytes()]
        if value and field not in hidden:
            after[field] = value
    return after


OFFSETS = ("stco", "co64", "tfhd", "tfra")
TIMES = ("mvhd", "tkhd", "mdhd")


def kept(data, fields):
    """All that must stay: what is inside of atoms, less what a change is about."""
    ours = {f":ilst:{ITEM_OF[field]}" for field in fields} | {":ilst:gnre", ":ilst:\xa9gen"}
    for path, body in leaves(data):
        name = path[-4:]
        if name == "free" or any(path.endswith(item) for item in ours):
            continue
        if name in TIMES:
            body = body[:8] + body[12:]
        elif name == "covr":
            body = body.replace(b"data\0\0\0\x0e", b"data\0\0\0\x0d")
        elif name in OFFSETS:
            body = body[:8], len(body)
        yield path, body


def check_kept(what, old, new, fields):
    before, after = list(kept(old, fields)), list(kept(new, fields))
    if not any(path.startswith(":moov:udta:meta") for path, _ in before):
        after = [leaf for leaf in after if not leaf[0].startswith(":moov:udta:meta")]
    elif not any(path.endswith(":meta:hdlr") for path, _ in before):
        after = [leaf for leaf in after if not leaf[0].endswith(":meta:hdlr")]
    check(f"{what}: atoms", after, before)
    for path, body in leaves(new):  # readers go from fragment to fragment without the index
        if path.endswith(":tfra"):
            version, count = body[0], unpack_from(">I", body, 12)[0]
            width = 8 if version else 4
            for at in range(16 + width, 16 + count * (2 * width + 3), 2 * width + 3):
                place = int.from_bytes(body[at:at + width], "big")
                check(f"{what}: index", new[place + 4:place + 8], b"moof")


# The corpus goes through the changes.


def set_fields(paths, fields):
    assignments = [f"{field}={value}" for field, value in fields.items()]
    done = subprocess.run([PROGRAM, "set", "--json", *paths, *assignments], capture_output=True)
    return {line["path"]: line for line in map(json.loads, done.stdout.splitlines())}


def copies(folder, shapes):
    folder.mkdir()
    paths = {name: folder / f"{name}.m4a" for name in shapes}
    for name, path in paths.items():
        path.write_bytes(shapes[name])
    return paths


def readings(paths):
    """What each reader sees, by shape."""
    exiftool = by_exiftool(list(paths.values()))
    with ThreadPoolExecutor(os.cpu_count()) as threads:
        ffmpeg = threads.map(by_ffmpeg, paths.values())
        return {name: {"ffmpeg": seen, "mutagen": by_mutagen(path),
                       "exiftool": exiftool.get(str(path), {})}
                | ({"kid3": by_kid3(path)} if name == "meta without version" else {})
                for (name, path), seen in zip(paths.items(), ffmpeg)}


def check_readers(what, name, before, after, fields):
    """Those that see the tag of the shape at all see the change and nothing else."""
    sighted = [reader for reader in after
               if "artist" in before[reader] or "artist" not in before["ffmpeg"]]
    check(f"{what}: two readers", len(sighted) >= 2, True)
    for reader in sighted:
        expected = with_change(before[reader], fields, HIDDEN.get(reader, ()))
        odd = [] if reader == "mutagen" else ODD.get(name, [])
        seen, expected = ({key: value for key, value in fields.items() if key not in odd}
                          for fields in (after[reader], expected))
        check(f"{what} in {reader}", seen, expected)


def check_written(folder, shapes):
    before = readings(copies(folder / "before", shapes))
    runs = {change: [fields] for change, fields in CHANGES.items()}
    runs["one after the other"] = [*CHANGES.values(), CHANGES["every field"]]
    for change, steps in runs.items():
        paths, fields = copies(folder / change, shapes), {}
        for step in steps:
            fields |= step
            outcomes = set_fields(paths.values(), step)
        after = readings(paths)
        for name, path in paths.items():
            what, outcome = f"{name}, {change}", outcomes[str(path)]
            old, new = shapes[name], path.read_bytes()
            check(f"{what}: error", outcome["error"], None)
            check(f"{what}: written", outcome["written"] or len(steps) > 1, new != old)
            if new == old:
                continue
            # A file without a title gets its name as one, with the next change.
            all_fields = fields if "title" in fields or b"\xa9nam" in old else dict(
                fields, title=name)
            check_kept(what, old, new, all_fields)
            check_readers(what, name, before[name], after[name], all_fields)


def write_sparse(path, song, hole):
    """The song with a hole at the end of its 'mdat', which then has a 64-bit size."""
    mdat = song.index(b"mdat") - 4
    end = mdat + len(top(song)["mdat"])
    song = shifted(song[:mdat], 8) + song[mdat:end] + shifted(song[end:], 8)
    with open(path, "wb") as file:
        file.write(song[:mdat] + pack(">I4sQ", 1, b"mdat", end - mdat + 8 + hole))
        file.write(song[mdat + 8:end])
        file.seek(hole, os.SEEK_CUR)
        file.write(song[end:])
        file.truncate(len(song) + 8 + hole)


def check_large(folder, sound):
    tight, roomy = (with_user_data(sound, user_data) for user_data in (TIGHT, ROOMY))
    for name, song, hole, may_move in (("moov last", tight, 4 << 30, False),
                                       ("moov first, room", moov_first(roomy), 4 << 30, False),
                                       ("moov first, moved", moov_first(tight), 100 << 20, True)):
        path = folder / f"large, {name}.m4a"
        write_sparse(path, song, hole)
        sums, size = by_ffmpeg(path)["sums"], path.stat().st_size
        program = subprocess.Popen([PROGRAM, "set", path, "title=" + "t" * 400],
                                   stdout=subprocess.DEVNULL)
        _, status, usage = os.wait4(program.pid, 0)
        program.returncode = status
        check(f"{name}: status", status, 0)
        check(f"{name}: memory below 64 MB", usage.ru_maxrss < 64 << 10, True)
        check(f"{name}: sound", by_ffmpeg(path)["sums"], sums)
        check(f"{name}: title", by_mutagen(path)["title"], "t" * 400)
        check(f"{name}: disk and size", may_move or path.stat().st_blocks < 2048
              and path.stat().st_size >= size, True)
        path.unlink()


def check_in(folder):
    os.chdir(folder)
    for name, size in {"own.png": 20, "small.png": 16, "large.jpg": 200}.items():
        make_sound(f"mandelbrot=s={size}x{size}", "-frames:v", "1", name)
    sounds, fragmented = make_sounds(folder)
    shapes = {f"{name}, {room}, moov {place}": layout(with_user_data(song, user_data))
              for name, song in sounds.items()
              for room, user_data in {"tight": TIGHT, "roomy": ROOMY}.items()
              for place, layout in {"last": bytes, "first": moov_first}.items()}
    plain = sounds["plain"]
    shapes |= {name: moov_first(with_user_data(plain, user_data)) for name, user_data
               in metadata_shapes(Path("own.png").read_bytes()).items()}
    check_written(folder, shapes | fragmented)
    check_large(folder, plain)


report_of(check_in, ("ffmpeg", "exiftool", "kid3-cli"))
