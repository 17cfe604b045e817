#!/usr/bin/env python3
"""Makes a library file of iTunes for the benchmarks and for trying things out, the same for the
same numbers.

    makelibrary.py FILE [--tracks 100000] [--playlists 500] [--music FOLDER]

With a folder the tracks are its songs in turn, as many as there are; else they are of another
machine. Every thirtieth entry is a stream or has no file. Playlists are ordinary, smart and in
folders, of 1 to 600 tracks; the first is the library with all of them."""

import argparse
import random
import sys
from pathlib import Path
from urllib.parse import quote
from xml.sax.saxutils import escape

WORDS = ("harbour light paper moon lantern slow water signal winter glass river stone café über "
         "night tram window arcade rain second floor öre ключ north & 夜").split()
GENRES = ["Rock", "Folk", "Electronic", "Jazz", "Classical", "Hip-Hop/Rap", "Soundtrack"]
KINDS = ["MPEG audio file"] * 6 + ["AAC audio file"] * 3 + ["AAC-Audiodatei"]
HEAD = """<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple Computer//DTD PLIST 1.0//EN" \
"http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
"""
MUSIC = "Users/ana/Music/iTunes/iTunes Music/"


def pair(indent, key, kind, value):
    tabs = "\t" * indent
    if kind == "true":
        return f"{tabs}<key>{key}</key><true/>\n"
    text = escape(str(value)).replace("&amp;", "&#38;")
    return f"{tabs}<key>{key}</key><{kind}>{text}</{kind}>\n"


def words(rng, count):
    return " ".join(rng.choice(WORDS) for _ in range(count)).title()


def albums(rng):
    """Endless tracks, album by album: artist, album, genre, year, number, count, title."""
    while True:
        artist, album = words(rng, 2), words(rng, rng.randint(1, 4))
        genre, year, count = rng.choice(GENRES), rng.randint(1955, 2016), rng.randint(1, 18)
        for number in range(1, count + 1):
            yield artist, album, genre, year, number, count, words(rng, rng.randint(1, 6))


def made_up_location(rng, kind, artist, album, number, title):
    ending = "mp3" if kind.startswith("MPEG") else "m4a"
    path = f"{MUSIC}{artist}/{album}/{number:02} {title}.{ending}"
    return rng.choice(("file://localhost/", "file:///")) + quote(path, safe="/&()!',;:@=+$")


def track(rng, number, song, fields):
    artist, album, genre, year, position, count, title = fields
    kind = KINDS[0] if song else rng.choice(KINDS)
    location = "file://" + quote(str(song)) if song else made_up_location(
        rng, kind, artist, album, position, title)
    if not song and number % 30 == 0:
        kind, location = "MPEG audio stream", rng.choice(("http://radio.example/stream", None))
    lines = [("Track ID", "integer", number), ("Size", "integer", rng.randint(2_000_000, 9_000_000)),
             ("Total Time", "integer", rng.randint(60_000, 600_000)),
             ("Track Number", "integer", position), ("Track Count", "integer", count),
             ("Year", "integer", year), ("Date Modified", "date", "2009-06-02T09:11:12Z"),
             ("Date Added", "date", "2009-06-02T09:11:00Z"), ("Bit Rate", "integer", 192),
             ("Sample Rate", "integer", 44100), ("Play Count", "integer", rng.randint(1, 90)),
             ("Play Date", "integer", 3_226_982_754), ("Play Date UTC", "date",
                                                      "2009-08-01T18:20:00Z"),
             ("Rating", "integer", 20 * rng.randint(1, 5)), ("Artwork Count", "integer", 1),
             ("Persistent ID", "string", f"{rng.getrandbits(64):016X}"),
             ("Track Type", "string", "File"), ("File Folder Count", "integer", 4),
             ("Library Folder Count", "integer", 1), ("Name", "string", title),
             ("Artist", "string", artist), ("Album Artist", "string", artist),
             ("Album", "string", album), ("Genre", "string", genre), ("Kind", "string", kind)]
    if location:
        lines.append(("Location", "string", location))
    if rng.random() < 0.1:
        lines.insert(9, ("Compilation", "true", None))
    return f"\t\t<key>{number}</key>\n\t\t<dict>\n" + "".join(
        pair(3, *line) for line in lines) + "\t\t</dict>\n"


def playlist(number, name, signs, items):
    text = "\t\t<dict>\n" + pair(3, "Name", "string", name) + pair(3, "Playlist ID", "integer",
                                                                    number)
    text += "".join(pair(3, *sign) for sign in signs) + pair(3, "All Items", "true", None)
    if items:
        text += "\t\t\t<key>Playlist Items</key>\n\t\t\t<array>\n" + "".join(
            f"\t\t\t\t<dict>\n\t\t\t\t\t<key>Track ID</key><integer>{item}</integer>\n"
            "\t\t\t\t</dict>\n" for item in items) + "\t\t\t</array>\n"
    return text + "\t\t</dict>\n"


def signs_of(rng):
    kind = rng.random()
    if kind < 0.05:
        return [("Folder", "true", None)]
    if kind < 0.3:
        return [("Smart Info", "data", "AQEAAwAAAAIAAAAZAQAAAAAAAAc="),
                ("Smart Criteria", "data", "U0xzdAABAAE" * 20)]
    return []


def songs_of(folder):
    return sorted(path for path in folder.resolve().rglob("*")
                  if path.suffix.lower() in (".mp3", ".m4a"))


def write_library(out, rng, tracks, playlists, songs):
    out.write(HEAD + pair(1, "Major Version", "integer", 1) + pair(1, "Minor Version", "integer", 1)
              + pair(1, "Application Version", "string", "9.2.1")
              + pair(1, "Music Folder", "string", "file://localhost/" + quote(MUSIC)))
    ids = [number * 2 + 100 for number in range(tracks)]
    out.write("\t<key>Tracks</key>\n\t<dict>\n")
    for index, (number, fields) in enumerate(zip(ids, albums(rng))):
        out.write(track(rng, number, songs[index] if songs else None, fields))
    out.write("\t</dict>\n\t<key>Playlists</key>\n\t<array>\n"
              + playlist(90_001, "Library", [("Master", "true", None)], ids))
    for index in range(1, playlists):
        items = rng.choices(ids, k=rng.randint(1, 600))
        out.write(playlist(90_001 + index, f"{words(rng, 2)} {index}", signs_of(rng), items))
    out.write("\t</array>\n</dict>\n</plist>\n")


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", 1)[0])
    parser.add_argument("file", type=Path)
    parser.add_argument("--tracks", type=int, default=100_000)
    parser.add_argument("--playlists", type=int, default=500)
    parser.add_argument("--music", type=Path, help="make the tracks of this folder's songs")
    arguments = parser.parse_args()
    songs = songs_of(arguments.music) if arguments.music else []
    if arguments.music and not songs:
        sys.exit(f"no songs in {arguments.music}")
    tracks = min(arguments.tracks, len(songs)) if songs else arguments.tracks
    with open(arguments.file, "w", encoding="utf-8") as out:
        write_library(out, random.Random(tracks), tracks, arguments.playlists, songs)


if __name__ == "__main__":
    main()
