"""The program as a user runs it: real files, a real site on a loopback port, an empty home."""

import contextlib
import http.server
import json
import os
import plistlib
import re
import shutil
import signal
import subprocess
import tempfile
import threading
import time
import unittest
import urllib.parse
from pathlib import Path

PROGRAM = os.environ["TAGWRIGHT_PROGRAM"]
RESOURCES = Path(__file__).resolve().parents[2] / "resources"
AUDIO = (bytes.fromhex("fffb9064") + bytes(413)) * 80

ALBUMS = {
    "aa01": ("Nila Oster", "Harbour Lights", "2007", "Folk", ["Low Water", "Fog Signal"]),
    "bb02": ("The Lanterns", "Paper Moons", "1987", "Rock", ["Neon Rain", "Last Tram Home"]),
    "cc03": ("The Lanterns", "Best Of", "1999", "Rock", ["Neon Rain", "Other"]),
}


def text_frame(name, text):
    body = b"\0" + text.encode("latin-1")
    return name + len(body).to_bytes(4, "big") + b"\0\0" + body


def song(path, **frames):
    data = b"".join(text_frame(name.encode(), text) for name, text in frames.items())
    size = len(data)
    head = b"ID3\3\0\0" + bytes((size >> 21 & 127, size >> 14 & 127, size >> 7 & 127, size & 127))
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes((head + data if data else b"") + AUDIO)
    return path


class Site(http.server.BaseHTTPRequestHandler):
    """A track database: a search form and disc records. `delay` slows every answer down, `status`
    is that of them all."""

    delay = 0.0
    status = 200
    searches = 0

    def answer(self, kind, text):
        time.sleep(Site.delay)
        body = text.encode("latin-1") if Site.status == 200 else b"come back later"
        self.send_response(Site.status)
        self.send_header("Content-Type", kind)
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        with contextlib.suppress(BrokenPipeError):  # a search that was cancelled meanwhile
            self.wfile.write(body)

    def do_POST(self):
        form = urllib.parse.parse_qs(self.rfile.read(int(self.headers["Content-Length"])).decode())
        Site.searches += 1
        wanted = form["ifSearch"][0].lower()
        rows = "".join(f"<tr><td>x</td><td>{key}</td><td>{artist} / {name}</td></tr>"
                       for key, (artist, name, _, _, tracks) in ALBUMS.items()
                       if wanted in [name.lower()] + [t.lower() for t in tracks])
        self.answer("text/html", "<h1>Search results, page 1</h1>"
                    f'<table class="results">{rows}</table>')

    def do_GET(self):
        artist, name, year, genre, tracks = ALBUMS[self.path.rsplit("=", 1)[1]]
        titles = "".join(f"TTITLE{i}={title}\n" for i, title in enumerate(tracks))
        self.answer("text/plain", f"# xmcd\nDTITLE={artist} / {name}\nDYEAR={year}\n"
                    f"DGENRE={genre}\n{titles}# {'-' * 99}\n")

    def log_message(self, *arguments):
        pass


CASES = Path(__file__).resolve().parents[1] / "data" / "cases"
# file, field, what the file holds afterwards, source
DEMO_FIELDS = [line.split("\t")
               for line in (CASES / "demofields.tsv").read_text().splitlines()]


def demo_fields(report):
    """The fields that the demo filled: (file, field) to (value, source)."""
    fields, file = {}, None
    for line in report.splitlines():
        if line and line[0] != " ":
            file = line.rsplit(" (", 1)[0]
        elif match := re.fullmatch(r"  (\w+) .*→ (.*?) +(\S+)", line):
            fields[file, match[1]] = match[2], match[3]
    return fields


class ProgramCase(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Site)
        threading.Thread(target=cls.server.serve_forever, daemon=True).start()

    @classmethod
    def tearDownClass(cls):
        cls.server.shutdown()
        cls.server.server_close()

    def setUp(self):
        self.home = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.home)
        self.music = self.home / "music"
        self.env = {"HOME": str(self.home), "PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8",
                    "ASAN_OPTIONS": os.environ.get("ASAN_OPTIONS", "")}
        Site.delay, Site.status, Site.searches = 0.0, 200, 0

    def run_program(self, *arguments, status=0):
        done = subprocess.run([PROGRAM, *map(str, arguments)], env=self.env, timeout=120,
                              capture_output=True, text=True)
        self.assertEqual(done.returncode, status, done.stderr)
        return done

    def lines(self, *arguments, status=0):
        return [json.loads(line)
                for line in self.run_program(*arguments, status=status).stdout.splitlines()]

    def definitions(self, **changes):
        values = plistlib.loads((RESOURCES / "defaultres.xml").read_bytes())
        address = f"http://127.0.0.1:{self.server.server_port}"
        values["sourcelist"] = ["FreeDBInterface"]
        values["res_FreeDBInterface"] |= {"queryPOST": address + "/search",
                                          "discInfoURL": address + "/disc?id=%@"} | changes
        path = self.home / "definitions.plist"
        path.write_bytes(plistlib.dumps(values))
        return path

    def gather(self, *options, status=0):
        return self.lines("gather", "--json", "--definitions", self.definitions(), *options,
                          self.music, status=status)


class Programs(ProgramCase):
    def test_gather_fills_writes_and_reports_what_adds_up(self):
        song(self.music / "a.mp3", TIT2="Low Water", TPE1="Nila Oster")
        m4a = self.music / "b" / "c.m4a"
        m4a.parent.mkdir()
        shutil.copy(RESOURCES / "silence.m4a", m4a)
        self.run_program("set", m4a, "title=Neon Rain", "artist=Lanterns, The")
        song(self.music / "d.mp3", TIT2="Nobody Knows", TPE1="Nobody")
        (self.music / "notes.txt").write_text("no song" * 99)
        *songs, summary = self.gather("--pick", "earliest")
        self.assertEqual([s["path"] for s in songs],
                         [str(self.music / name) for name in ("a.mp3", "b/c.m4a", "d.mp3")])
        self.assertEqual(songs[0]["changed"], ["AlbumName", "Genre", "Year", "Track"])
        self.assertEqual(songs[0]["sources"]["Year"], "FreeDBInterface")
        self.assertEqual([s["written"] for s in songs], [True, True, False])
        self.assertEqual(summary, {"summary": {"processed": 3, "modified": 2, "failed": 0,
                                               "cancelled": False}})
        shown = self.lines("show", "--json", self.music)
        self.assertEqual([(s["album"], s["year"], s["track"]) for s in shown],
                         [("Harbour Lights", "2007", "1/2"), ("Paper Moons", "1987", "1/2"),
                          (None, None, None)])
        for path in self.music.rglob("*.mp3"):
            self.assertEqual(path.read_bytes()[-len(AUDIO):], AUDIO)

    def test_several_albums_without_a_picking_method_are_counted(self):
        song(self.music / "a.mp3", TIT2="Neon Rain", TPE1="The Lanterns")
        done = self.run_program("gather", "--definitions", self.definitions(), "--pick", "none",
                                self.music)
        self.assertIn("2 albums found; --pick chooses one", done.stdout)

    def test_a_dry_run_reports_and_writes_nothing(self):
        before = song(self.music / "a.mp3", TIT2="Low Water", TPE1="Nila Oster").read_bytes()
        first, summary = self.gather("--dry-run")
        self.assertTrue(first["changed"])
        self.assertEqual(first["candidates"][0] | {"score": None},
                         {"source": "FreeDBInterface", "album": "Harbour Lights",
                          "artist": "Nila Oster", "year": "2007", "tracks": 2, "art": False,
                          "score": None, "lookedUp": True, "dropped": None})
        self.assertIn("Harbour Lights", first["reason"])
        self.assertFalse(first["written"])
        self.assertEqual(summary["summary"]["modified"], 1)
        self.assertEqual((self.music / "a.mp3").read_bytes(), before)

    def test_songs_that_cannot_be_done_are_named_and_the_others_go_on(self):
        song(self.music / "a.mp3", TIT2="Low Water", TPE1="Nila Oster")
        (self.music / "bad.mp3").write_bytes(b"ID3\5\0\0\0\0\0\x40" + AUDIO)
        damaged = b"TIT2\x00\x00\xff\xff\x00\x00\x00x"
        (self.music / "damaged.mp3").write_bytes(b"ID3\3\0\0\0\0\0" + bytes((len(damaged),))
                                                 + damaged + AUDIO)
        (self.music / "film.m4a").write_bytes(b"\0\0\0\x18ftypM4A moovudtamdia" + bytes(9000))
        done = self.run_program("gather", "--json", "--definitions", self.definitions(),
                                self.music, self.home / "gone.mp3", status=1)
        *songs, summary = map(json.loads, done.stdout.splitlines())
        by_name = {Path(s["path"]).name: s for s in songs}
        self.assertTrue(by_name["a.mp3"]["written"])
        for name in ("bad.mp3", "damaged.mp3", "film.m4a"):
            self.assertFalse(by_name[name]["written"])
            self.assertTrue(by_name[name]["error"])
        self.assertEqual(summary["summary"]["failed"], 3)
        self.assertIn("gone.mp3", done.stderr)
        self.run_program("regenerate", self.music / "damaged.mp3")
        self.run_program("set", self.music / "damaged.mp3", "title=x")

    def test_an_interrupt_leaves_the_song_in_hand_and_prints_the_summary(self):
        for number in range(6):
            song(self.music / f"{number}.mp3", TIT2="Low Water", TPE1="Nila Oster")
        before = {p: p.read_bytes() for p in self.music.iterdir()}
        Site.delay = 1.5
        program = subprocess.Popen(
            [PROGRAM, "gather", "--json", "--definitions", self.definitions(), self.music],
            env=self.env, stdout=subprocess.PIPE, text=True)
        time.sleep(1.0)
        program.send_signal(signal.SIGINT)
        *songs, summary = map(json.loads, program.communicate(timeout=30)[0].splitlines())
        self.assertEqual((program.returncode, songs), (1, []))
        self.assertTrue(summary["summary"]["cancelled"])
        self.assertEqual(before, {p: p.read_bytes() for p in self.music.iterdir()})

    def test_arguments_that_are_wrong_change_nothing(self):
        path = song(self.music / "a.mp3", TIT2="Low Water")
        before = path.read_bytes()
        no_picture = self.home / "x.png"
        no_picture.write_text("no picture")
        wrong = [("gather", "--want", "sound", path), ("gather", "--parallel", "--serial", path),
                 ("gather", "--definitions", no_picture, path), ("set", path), ("set", "title=x"),
                 ("set", path, "compilation=perhaps"), ("set", path, f"artwork={no_picture}"),
                 ("set", path, "title=y", "artwork=gone.png"), ("show",), ("play", path),
                 ("gather",), ("gather", "--retry", path), ("gather", "--retry", "--library"),
                 ("gather", "--want", "none", path), ("gather", "--pick", "latest", path),
                 ("gather", "--substrings", "--no-substrings", path)]
        wrong += [("gather", "--max-art", width, path) for width in ("wide", "nan", "0", "99999")]
        refused = self.definitions(discInfoURL="file:///etc/%@")
        wrong += [("gather", "--definitions", refused, path),
                  ("sites", "check", "--definitions", refused), ("sites", "play"),
                  ("sites", "list", "--definitions", no_picture), ("sites",),
                  ("sites", "update", "--definitions", RESOURCES / "defaultres.xml")]
        for arguments in wrong:
            with self.subTest(arguments=arguments):
                self.assertTrue(self.run_program(*arguments, status=2).stderr)
        self.assertEqual(path.read_bytes(), before)

    def test_set_twice_writes_once_and_keeps_the_inode(self):
        path = song(self.music / "a.mp3", TIT2="Low Water")
        inode = path.stat().st_ino
        fields = ("title=Łódź = x", "album=B", "track=1/2", "lyrics=one\ntwo", "compilation=yes")
        first, = self.lines("set", "--json", path, *fields)
        self.assertEqual((first["written"], first["error"]), (True, None))
        stamp = path.stat()
        again, = self.lines("set", "--json", path, *fields)
        self.assertFalse(again["written"])
        self.assertEqual((path.stat().st_ino, path.stat().st_mtime_ns, path.stat().st_ctime_ns),
                         (inode, stamp.st_mtime_ns, stamp.st_ctime_ns))
        shown, = self.lines("show", "--json", path)
        self.assertEqual((shown["title"], shown["lyrics"], shown["compilation"]),
                         ("Łódź = x", "one\ntwo", True))
        os.utime(path, ns=(10**18, 10**18))
        self.lines("set", "--json", "--keep-time", path, "album=")
        self.assertEqual(path.stat().st_mtime_ns, 10**18)

    def test_a_file_name_that_stands_for_a_title_is_written_when_set(self):
        path = song(self.music / "Untitled Song.mp3", TPE1="X")
        self.assertEqual(self.lines("show", "--json", path)[0]["title"], "Untitled Song")
        self.assertTrue(self.lines("set", "--json", path, "title=Untitled Song")[0]["written"])
        self.assertIn(b"Untitled Song", path.read_bytes())

    def test_show_never_writes_and_loads_no_gui_library(self):
        path = song(self.music / "a.mp3", TCON="(17)")
        before = (path.read_bytes(), path.stat().st_mtime_ns)
        self.assertEqual(self.lines("show", "--json", path)[0]["genres"], "Rock")
        self.assertEqual((path.read_bytes(), path.stat().st_mtime_ns), before)
        libraries = subprocess.run(["ldd", PROGRAM], capture_output=True, text=True).stdout
        self.assertIn("libQt6Core", libraries)
        for name in ("Gui", "Network", "DBus", "HttpServer"):
            self.assertNotIn("libQt6" + name, libraries)

    def test_decomposed_names_are_found_and_folders_come_sorted(self):
        song(self.music / "e\u0301.mp3", TIT2="x")
        self.assertEqual(len(self.lines("show", "--json", self.music / "\u00e9.mp3")), 1)
        for name in ("b.mp3", "b/a.mp3", "b-.mp3", "a/z.mp3"):
            song(self.music / name, TIT2="x")
        shown = self.lines("show", "--json", self.music)
        self.assertEqual([s["path"] for s in shown], sorted(s["path"] for s in shown))
        self.assertEqual(len(shown), 5)

    def test_the_demo_fills_each_field_from_the_source_meant_for_it(self):
        done = self.run_program("demo", "--headless")
        self.assertEqual(done.stderr, "")
        filled = demo_fields(done.stdout)
        for file, field, value, source in DEMO_FIELDS:
            with self.subTest(file=file, field=field):
                self.assertEqual(filled.get((file, field)), (value, source))
        self.assertNotIn("Garage Tape 3.mp3", [file for file, _ in filled])
        self.assertLessEqual(max(map(len, done.stdout.splitlines())), 80)


if __name__ == "__main__":
    unittest.main()
