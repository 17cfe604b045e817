"""A folder of 300 songs that know title and artist alone, or have no tags but are well named, is
filled by the living services: all of it, in few requests, at their pace, and as far as it goes when
one of them fails."""

import concurrent.futures
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from standin_catalogue import (ALBUMS, INSTRUMENTAL, VARIOUS, WITHOUT_ART, WITHOUT_WORDS,
                               Catalogue)
from standin_services import (COVERS, FAILURES, LYRICS, MUSICBRAINZ, SHOP, SOUND, SOURCELIST,
                              Services, Sounds, picture, sha1)

PROGRAM = os.environ["TAGWRIGHT_PROGRAM"]
SILENCE = (Path(__file__).resolve().parents[2] / "resources" / "silence.m4a").read_bytes()
MOST_REQUESTS = 2.2  # a song
# Those that users are given; the table below says what each has.
LIVING = tuple(service for service in (MUSICBRAINZ, COVERS, LYRICS) if service in SOURCELIST)
WITH_SHOP = (*LIVING, SHOP)  # which the user switches on
OF_ALBUM = ("AlbumName", "Genre", "Year", "Track")
WANTED = {MUSICBRAINZ: OF_ALBUM, COVERS: ("Artwork",), LYRICS: ("Lyrics",),
          SHOP: (*OF_ALBUM, "Artwork")}


def mp3(seconds):
    """Frames of 36 milliseconds at 8 kbit/s."""
    return (bytes.fromhex("fff318c0") + bytes(32)) * round(seconds / 0.036)


def m4a(seconds):
    at = SILENCE.index(b"mvhd") + 16  # of scale and length
    scale = int.from_bytes(SILENCE[at:at + 4], "big")
    return SILENCE[:at + 4] + (seconds * scale).to_bytes(4, "big") + SILENCE[at + 8:]


def named_by_path(song):
    """What is to be read from its path."""
    is_named = song.album % 6 > 2 or ALBUMS[song.album][0] == VARIOUS
    return {"Artist", "SongTitle"} if is_named else set()


def given_by(sources):
    return {field for source in sources for field in WANTED[source]}


def lacking(song, sources):
    """What none of the services has of it."""
    without_words = {"Lyrics"} if song.key in (INSTRUMENTAL, WITHOUT_WORDS) else set()
    has_art = song.album != WITHOUT_ART or SHOP in sources
    return without_words | (set() if has_art else {"Artwork"})


class Home:
    """A user's home with a folder of songs."""

    def __init__(self, test, songs, model=None):
        self.path = Path(tempfile.mkdtemp())
        test.addCleanup(shutil.rmtree, self.path)
        self.env = {"HOME": str(self.path), "PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8",
                    "ASAN_OPTIONS": os.environ.get("ASAN_OPTIONS", "")}
        self.music = self.path / "music"
        self.songs = {str(self.file_of(song)): song for song in songs}
        if model:
            shutil.copytree(model.music, self.music)
            return
        self.music.mkdir()
        with concurrent.futures.ThreadPoolExecutor(2) as pool:
            list(pool.map(self.make, self.songs.items()))

    def file_of(self, song):
        artist, title, owner, album = (name.replace("/", "_") for name in (
            song.artist, song.title, *ALBUMS[song.album][:2]))
        number = f"{song.number:02}"
        if owner == VARIOUS:
            name = f"{owner} - {album}/{number} {artist} - {title}"
        else:
            name = {3: f"{artist} - {title}", 4: f"{owner}/{album}/{number} {title}",
                    5: f"{owner} - {album}/{number} - {title}"}.get(
                        song.album % 6, f"{song.album:02} {number}")
        return self.music / (name + (".m4a" if song.number % 4 == 0 else ".mp3"))

    def make(self, item):
        path, song = item
        Path(path).parent.mkdir(parents=True, exist_ok=True)
        Path(path).write_bytes((m4a if path.endswith("a") else mp3)(song.seconds))
        if not named_by_path(song):
            self.run("set", path, f"title={song.title}", f"artist={song.artist}")

    def run(self, *arguments):
        done = subprocess.run([PROGRAM, *map(str, arguments)], env=self.env, timeout=100,
                              capture_output=True, text=True)
        if done.returncode:
            raise AssertionError(f"{arguments}: {done.returncode} {done.stderr}")
        return [json.loads(line) for line in done.stdout.splitlines() if line.startswith("{")]

    def gather(self, services, *options, sources=LIVING, changes=None):
        if SHOP in sources:
            self.switch_on("useDeezer")
        definitions = self.path / "definitions.plist"
        definitions.write_bytes(services.definitions([s for s in sources if s != SHOP],
                                                     changes))
        *songs, summary = self.run("gather", "--json", "--definitions", definitions, "--want",
                                   "all", "--max-art", 500, *options)
        return songs, summary["summary"]

    def switch_on(self, preference):
        self.run("sites", "list")  # a new user has settings from then on
        settings = self.path / ".config" / "tagwright" / "tagwright.conf"
        settings.write_text(settings.read_text().replace("[General]\n",
                                                         f"[General]\n{preference}=true\n"))

    def shown(self):
        return self.run("show", "--json", self.music)


class LivingServices(unittest.TestCase):
    maxDiff = None
    catalogue = Catalogue()

    def services(self, sounds=None, **failing):
        services = Services(self.catalogue, failing, sounds)
        self.addCleanup(services.close)
        return services

    def assert_filled(self, shown, song, sources=LIVING):
        album, year, track, genre = self.catalogue.tags(song)
        expected = {"AlbumName": album, "Year": year, "Track": track, "Genre": genre,
                    "Lyrics": song.words, "Artwork": sha1(picture(song.album, 500))}
        # Who sings on a compilation is written as the file's name can say it.
        is_of_many = ALBUMS[song.album][0] == VARIOUS
        artist = song.artist.replace("/", " ") if is_of_many else song.artist
        self.assertEqual((shown["artist"], shown["title"]), (artist, song.title))
        images = [image["sha1"] for image in shown["images"]]
        fields = {"AlbumName": shown["album"], "Year": shown["year"], "Track": shown["track"],
                  "Genre": shown["genres"], "Lyrics": shown["lyrics"],
                  "Artwork": images[0] if images else None}
        given = given_by(sources) - lacking(song, sources)
        self.assertEqual(fields, {field: value if field in given else None
                                  for field, value in expected.items()})

    def assert_told(self, told, song, sources):
        given = given_by(sources) - lacking(song, sources) | named_by_path(song)
        self.assertEqual(set(told["changed"]), given)
        self.assertEqual(set(told["sources"]), given)
        for field, source in told["sources"].items():
            of = "Track" if field in named_by_path(song) else field
            self.assertIn(source, [s for s in sources if of in WANTED[s]] + ["library"], field)
        self.assertEqual((told["written"], told["error"]), (True, None))
        self.assertEqual(set(told["reasons"]), {*OF_ALBUM, "SongTitle", "Lyrics", "Artwork"}
                         | named_by_path(song))
        self.assertEqual("instrumental" in told, song.key == INSTRUMENTAL and LYRICS in sources)
        chosen = next(each for each in told["candidates"] if each["dropped"] is None)
        self.assertEqual((chosen["source"], chosen["album"]),
                         (told["sources"]["Track"], self.catalogue.tags(song)[0]))
        self.assertGreaterEqual(chosen["score"], 50)
        self.assertRegex(told["reason"], f"^Chosen: .*{re.escape(chosen['album'])}")

    def test_a_folder_of_300_songs_is_filled_in_few_requests(self):
        made = Home(self, self.catalogue.files)
        for sources in LIVING, WITH_SHOP:
            home, services = Home(self, self.catalogue.files, made), self.services()
            told, summary = home.gather(services, home.music, sources=sources)
            self.assertEqual(services.broken_rules(), [])
            self.assertEqual(summary, {"processed": 300, "modified": 300, "failed": 0,
                                       "cancelled": False})
            shown = {each["path"]: each for each in home.shown()}
            for report in told:
                song = home.songs[report["path"]]
                with self.subTest(artist=song.artist, title=song.title, sources=sources):
                    self.assert_filled(shown[report["path"]], song, sources)
                    self.assert_told(report, song, sources)
            count = services.requests.total()
            print(f"{count / 300:.2f} requests a song: {dict(services.requests)}", file=sys.stderr)
            self.assertLessEqual(count / 300, MOST_REQUESTS)

    def test_each_service_fails_in_turn_in_each_way(self):
        """The run ends with what the others gave, and tells of the service that gave nothing."""
        keys = ((2, 1), (2, 8), (3, 4), (4, 5), (24, 3))  # the last ones once it is marked
        made = Home(self, [song for song in self.catalogue.files if song.key in keys])
        with concurrent.futures.ThreadPoolExecutor(10) as pool:
            runs = {(service, failure): pool.submit(self.failing, made, service, failure)
                    for service in WITH_SHOP for failure in FAILURES}
        for (service, failure), run in runs.items():
            with self.subTest(service=service, failure=failure):
                self.assert_left_out(service, *run.result())
                if failure == "broken":
                    self.assert_taken_up_again(service, run.result()[0])

    def failing(self, made, service, failure, *options):
        home, services = Home(self, made.songs.values(), made), self.services(**{service: failure})
        home.env = made.env | {"HOME": str(home.path)}
        impatient = dict.fromkeys((service, COVERS) if failure == "stalled" else (),
                                  {"patience": 0.5})  # the covers' definition has both hosts
        told, summary = home.gather(services, home.music, *options, changes=impatient,
                                    sources=WITH_SHOP if service == SHOP else LIVING)
        return home, told, summary, services.broken_rules()

    def assert_left_out(self, service, home, told, summary, broken):
        self.assertEqual(broken, [])
        self.assertEqual((summary["processed"], summary["failed"]), (5, 0))
        lost = [service] if service != MUSICBRAINZ else [service, COVERS]  # of which release?
        for each in told:
            expected = given_by(set(LIVING) - set(lost)) | named_by_path(home.songs[each["path"]])
            self.assertEqual(set(each["changed"]), expected, each)
            self.assertIn(service, each["reason"], each)
            if service != SHOP:  # the others have all that it has
                field = WANTED[service][0]
                self.assertIn(service, each["reasons"][field], each)
        self.assertIn(service, summary["leftAlone"])
        self.assertEqual(summary.get("unasked", {}).get(service, []),
                         [] if service == SHOP else [each["path"] for each in told])

    def assert_taken_up_again(self, service, home):
        services = self.services()
        other = home.music / "other.mp3"
        other.write_bytes(mp3(200))
        told, summary = home.gather(services, "--retry")
        self.assertEqual((summary["processed"], summary["modified"]),
                         (0, 0) if service == SHOP else (5, 5))
        for shown in home.shown():
            if shown["path"] != str(other):
                self.assert_filled(shown, home.songs[shown["path"]])

    def test_songs_without_names_are_known_by_their_sound(self):
        home, song = self.home_with_sounds(), self.catalogue.files[30]
        fingerprint = subprocess.run(["ffmpeg", "-v", "error", "-i", home.music / "01 Track.mp3",
                                      "-f", "chromaprint", "-"], capture_output=True, check=True)
        services = self.services({fingerprint.stdout.decode().strip(): song})
        known, unknown = home.gather(services, home.music, "--identify")[0]
        self.assertEqual(services.broken_rules(), [])
        shown = home.shown()[0]
        self.assert_filled(shown, song)
        self.assertEqual((shown["title"], shown["artist"]), (song.title, song.artist))
        self.assertEqual(set(known["changed"]), given_by(LIVING) | {"Artist", "SongTitle"})
        for field in "Artist", "SongTitle":
            self.assertEqual(known["sources"][field], SOUND)
        self.assertEqual(unknown["changed"], [])
        self.assertIn("not known by its sound", unknown["error"])

    def test_the_service_of_sounds_fails_in_each_way(self):
        made = self.home_with_sounds()
        with concurrent.futures.ThreadPoolExecutor(len(FAILURES)) as pool:
            runs = {failure: pool.submit(self.failing, made, SOUND, failure, "--identify")
                    for failure in FAILURES}
        for failure, run in runs.items():
            with self.subTest(failure=failure):
                _, told, summary, _ = run.result()
                self.assertEqual((summary["processed"], summary["modified"]), (2, 0))
                self.assertTrue(all("not known by its sound" in each["error"] for each in told))

    def home_with_sounds(self):
        home = Home(self, [])
        home.env["TAGWRIGHT_ACOUSTID_KEY"] = Sounds.KEY
        for name, hertz in ("01 Track.mp3", "330+200*sin(t)"), ("Track 02.m4a", "900*t"):
            subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i",
                            f"aevalsrc='sin(6.28*t*({hertz}))':d=20", home.music / name],
                           check=True)
        return home


if __name__ == "__main__":
    unittest.main()
