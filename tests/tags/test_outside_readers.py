"""Other programs see the tags that we write, and we see theirs; the sound stays as it was."""

import json
import shutil
import subprocess

import mutagen.id3 as id3

from outside import (FIELDS, LATIN, LONG, PROGRAM, UNICODE, check, make_sound, named, report_of,
                     run, sha1)

TOOLS = ("ffmpeg", "ffprobe", "exiftool", "kid3-cli")

MUTAGEN, _ = named("TIT2,TPE1,TALB,TDRC,TRCK,TCON,TBPM,USLT::eng,TCMP")
FFMPEG, OF_FFMPEG = named("title,artist,album,date,track,genre,TBPM,lyrics-eng,compilation")
_, OF_EXIFTOOL = named("Title,Artist,Album,Year,Track,Genre,BeatsPerMinute,Lyrics,Compilation")
KID3, OF_KID3 = named("Title,Artist,Album,Date,Track Number,Genre,BPM,Lyrics,Compilation")
OF_FFMPEG |= {"TBP": "bpm"}
OF_EXIFTOOL |= {"RecordingTime": "year", "Lyrics-eng": "lyrics"}

SMALL = dict(title="Fog Signal", artist="Nila Oster", album="Sea Songs", year="2007", track="7",
             genres="Folk")


def sound(path):
    return run("ffmpeg", "-v", "error", "-i", path, "-map", "0:a", "-c", "copy", "-f", "md5", "-")


ID3V1 = b"TAG" + b"Old title".ljust(122, b"\0") + b"\0\2\x50"
V23 = b"ID3\3\0\0\0\0\0\x0eTIT2\0\0\0\4\0\0\0Old"
FRONT = {  # what stands in front of the sound, and behind it, by version
    "2.2.0": (b"ID3\2\0\0\0\0\0\x0aTT2\0\0\4\0Old", b""), "2.3.0": (V23, b""),
    "2.4.0": (V23.replace(b"\3", b"\4"), b""), "1.1": (b"", ID3V1), "2.3.0 and 1.1": (V23, ID3V1),
}


# What each reader shows: our fields, "compilation", the sum of the "picture", the "version".

def by_mutagen(path):
    tag = id3.ID3(path, load_v1=False)
    seen = {field: str(tag[name]) for field, name in MUTAGEN.items() if name in tag}
    return seen | {"version": ".".join(map(str, tag.version)),
                   "picture": sha1(tag.getall("APIC")[0].data)}


def by_ffprobe(path):
    shown = json.loads(run("ffprobe", "-v", "error", "-of", "json", "-show_entries",
                           "format_tags:stream=codec_type", path))
    tags = shown["format"].get("tags", {})
    seen = {OF_FFMPEG[name]: value for name, value in tags.items() if name in OF_FFMPEG}
    if any(stream["codec_type"] == "video" for stream in shown["streams"]):
        seen["picture"] = sha1(run("ffmpeg", "-v", "error", "-i", path, "-map", "0:v", "-c",
                                   "copy", "-f", "image2pipe", "-"))
    return seen


def by_exiftool(path, group="ID3v2"):
    seen = {}
    for key, value in json.loads(run("exiftool", "-j", "-a", "-G1", "-ID3:all", path))[0].items():
        family, _, name = key.partition(":")
        if family.startswith(group):
            seen["version"] = family.removeprefix("ID3v").replace("_", ".") + ".0"
            if name in OF_EXIFTOOL:
                seen[OF_EXIFTOOL[name]] = {"Yes": "1"}.get(value, str(value))
    return seen | {"picture": sha1(run("exiftool", "-b", "-Picture", path))}


def by_kid3(path, tag="tag2"):
    shown = json.loads(run("kid3-cli", "-c", '{"method":"get","params":["all"]}', path))
    shown = shown["result"]["taggedFile"][tag]
    seen = {OF_KID3[frame["name"]]: str(frame["value"]) for frame in shown["frames"]
            if frame["name"] in OF_KID3 and frame["value"] != ""}
    picture = path.with_name("picture")
    run("kid3-cli", "-c", f"get picture:{picture} 2", path)
    if picture.exists():
        seen["picture"] = sha1(picture.read_bytes())
        picture.unlink()
    return seen | {"version": shown["format"].removeprefix("ID3v")}


READERS = {"mutagen": by_mutagen, "ffprobe": by_ffprobe, "exiftool": by_exiftool, "kid3": by_kid3}
NOT_SHOWN = {("ffprobe", "2.2.0"): ("version", "lyrics"),  # whoever wrote the tag
             ("ffprobe", "2.3.0"): ("version",), ("ffprobe", "2.4.0"): ("version",)}


def by_us(path):
    return json.loads(run(PROGRAM, "show", "--json", "--id3", "standard", path))


def set_fields(path, fields):
    assignments = [f"{field}={value}" for field, value in fields.items()]
    done = subprocess.run([PROGRAM, "set", "--json", "--id3", "standard", "--id3v24-sizes",
                           "accurate", path, *assignments], capture_output=True)
    check(f"{path.name}: status, errors", (done.returncode, done.stderr.decode()), (0, ""))
    return json.loads(done.stdout or b'{"written": null, "error": null, "writeVersion": null}')


def check_written_tags(song, pictures):
    before = sound(song)
    for version, (front, end) in FRONT.items():
        for name, (fields, picture) in {"latin": (LATIN, pictures[0]), "long": (LONG, pictures[1]),
                                        "unicode": (UNICODE, pictures[1])}.items():
            path = song.with_name(f"{version} {name}.mp3")
            path.write_bytes(front + song.read_bytes() + end)
            outcome = set_fields(path, fields | {"compilation": "yes", "artwork": picture})
            written = "2.3.0" if version.endswith("1.1") else version
            check(f"{path.name}: outcome", (outcome["written"], outcome["error"],
                                            outcome["writeVersion"]), (True, None, written))
            check(f"{path.name}: sound", sound(path), before)
            expected = fields | {"compilation": "1", "version": written,
                                 "picture": sha1(picture.read_bytes())}
            for reader, read in READERS.items():
                title = fields["title"]
                if reader == "exiftool":  # it does not join surrogates
                    title = title.replace("🎵", "??????")
                check_fields(f"{path.name} in {reader}", read(path), expected | {"title": title},
                             NOT_SHOWN.get((reader, written), ()))


def check_fields(what, seen, expected, not_shown=()):
    for field, value in expected.items():
        if field not in not_shown:
            check(f"{what}: {field}", seen.get(field), value)


def check_small_tags(song):
    path = song.with_name("small.mp3")
    path.write_bytes(song.read_bytes() + ID3V1)
    check("small: version", set_fields(path, SMALL)["writeVersion"], "1.1")
    check("small: sound", sound(path), sound(song))
    check_fields("small in ffprobe", by_ffprobe(path), SMALL)
    tag = id3.ID3(path)
    check_fields("small in mutagen", {field: str(tag[MUTAGEN[field]]) for field in SMALL}, SMALL)
    both = song.with_name("both.mp3")
    both.write_bytes(FRONT["2.3.0"][0] + song.read_bytes() + ID3V1)
    set_fields(both, SMALL)
    for written in (path, both):
        check_fields(f"{written.name} in exiftool", by_exiftool(written, "ID3v1"), SMALL)
        check_fields(f"{written.name} in kid3", by_kid3(written, "tag1"), SMALL)


def check_nothing_lost(song):
    """Frames that we do not know stay in the eyes of others when another field is set."""
    for version, major in {"2.3.0": 3, "2.4.0": 4}.items():
        path = song.with_name(f"rich {version}.mp3")
        shutil.copy(song, path)
        tag = id3.ID3()
        for frame in (id3.TIT2(3, "Song"), id3.TXXX(3, "mood", "ruhig Ω"), id3.TPE2(3, "Ω & Co"),
                      id3.COMM(3, "deu", "kurz", "Ω Text"), id3.PRIV(owner="own", data=b"\1\0\2"),
                      id3.POPM("me", 200, 7), id3.UFID("own", b"\0\xff"), id3.TCOM(3, "Ω"),
                      id3.APIC(0, "image/png", 4, "back", b"\x89PNG\r\n\x1a\nb"),
                      id3.APIC(0, "image/png", 3, "front", b"\x89PNG\r\n\x1a\nf")):
            tag.add(frame)
        tag.save(path, v1=0, v2_version=major)
        before = {key: frame for key, frame in id3.ID3(path).items() if key != "TIT2"}
        check(f"{path.name}: outcome", set_fields(path, {"title": "New"})["error"], None)
        after = id3.ID3(path)
        check(f"{path.name}: title", str(after.pop("TIT2")), "New")
        check(f"{path.name}: frames", dict(after), before)


def written_by_mutagen(path, fields, v2_version=4, encoding=3):
    tag = id3.ID3()
    for field in FIELDS[:7]:
        tag.add(getattr(id3, MUTAGEN[field])(encoding, fields[field]))
    tag.add(id3.USLT(encoding, "eng", "", fields["lyrics"]))
    if v2_version == 3:
        tag.update_to_v23()
    tag.save(path, v1=0, v2_version=v2_version)


def written_by_kid3(path, fields):
    for field, value in fields.items():
        run("kid3-cli", "-c", f"set '{KID3[field].lower()}' '{value}' 2", path)


def written_by_ffmpeg(path, fields, version="4"):
    options = [part for field in FIELDS[:7]
               for part in ("-metadata", f"{FFMPEG[field]}={fields[field]}")]
    plain = path.with_suffix(".plain.mp3")
    path.rename(plain)
    run("ffmpeg", "-v", "error", "-i", plain, "-c", "copy", "-id3v2_version", version, *options, path)


WRITERS = {
    "mutagen 2.4 UTF-8": (written_by_mutagen, {}, "2.4.0", ()),
    "mutagen 2.4 UTF-16": (written_by_mutagen, dict(encoding=1), "2.4.0", ()),
    "mutagen 2.4 big-endian": (written_by_mutagen, dict(encoding=2), "2.4.0", ()),
    "mutagen 2.3": (written_by_mutagen, dict(v2_version=3, encoding=1), "2.3.0", ()),
    "kid3": (written_by_kid3, {}, "2.3.0", ()),
    "ffmpeg 2.4": (written_by_ffmpeg, {}, "2.4.0", ("lyrics",)),
    "ffmpeg 2.3": (written_by_ffmpeg, dict(version="3"), "2.3.0", ("lyrics",)),
}


def check_read_tags(song):
    for writer, (write, options, version, not_written) in WRITERS.items():
        for name, fields in {"latin": LATIN, "unicode": UNICODE}.items():
            path = song.with_name(f"{writer} {name}.mp3")
            shutil.copy(song, path)
            write(path, fields, **options)
            check_fields(f"{path.name} read by us", by_us(path),
                         fields | {"readVersion": version, "problem": False}, not_written)


def check_in(folder):
    song = folder / "song.mp3"
    make_sound("sine=440:d=2", "-c:a", "libmp3lame", "-write_xing", "0", "-id3v2_version", "0",
               "-map_metadata", "-1", song)
    pictures = [folder / "cover.png", folder / "cover.jpg"]
    for picture in pictures:
        make_sound("mandelbrot=s=160x160", "-frames:v", "1", picture)
    check_written_tags(song, pictures)
    check_small_tags(song)
    check_nothing_lost(song)
    check_read_tags(song)


report_of(check_in, TOOLS)
