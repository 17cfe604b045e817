"""Songs are written while music players on a session bus play them: a real one, and stand-ins
with faults. The bus is one of the test's own."""

import itertools
import os
import signal
import subprocess
import sys
import tempfile
import time
import unittest
import unittest.mock
from pathlib import Path

import mutagen

PROGRAM = os.environ["TAGWRIGHT_PROGRAM"]
MPV = ["mpv", "--no-config", "--script=/usr/lib/mpv-mpris/mpris.so", "--no-video", "--ao=null",
       "--really-quiet"]


class Players(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.song = self.folder / "Ünder a&b #1 100%41.mp3"
        subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", "sine=duration=90", "-b:a",
                        "128k", "-metadata", "title=Old", "-metadata", "artist=Nila Oster",
                        "-metadata", "album=Salt", "-metadata", "track=1/2", self.song], check=True)

    def start(self, *command, **options):
        process = subprocess.Popen(command, text=True, **options)
        self.addCleanup(process.__exit__, None, None, None)
        self.addCleanup(process.kill)
        return process

    def playerctl(self, *arguments):
        return subprocess.run(["playerctl", "-p", "mpv", *arguments], capture_output=True,
                              text=True).stdout.strip()

    def wait_until(self, condition):
        end = time.monotonic() + 20
        while not condition():
            self.assertLess(time.monotonic(), end, "it never happened")
            time.sleep(0.05)

    def play_in_mpv(self, song, *options):
        mpv = self.start(*MPV, *options, song, stdin=subprocess.DEVNULL)
        self.wait_until(lambda: self.playerctl("status"))
        return mpv

    def stand_in(self, name, fault, song):
        script = Path(__file__).with_name("stand_in_player.py")
        player = self.start("/usr/bin/python3", script, name, fault, song, stdout=subprocess.PIPE)
        self.assertEqual(player.stdout.readline(), "ready\n")
        return player

    def tagwright(self, *arguments):
        begin = time.monotonic()
        done = subprocess.run([PROGRAM, *arguments], capture_output=True, text=True, timeout=60,
                              env={**os.environ, "HOME": str(self.folder)})
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return time.monotonic() - begin

    def calls_while(self, action):
        """The methods of players that were called, in order."""
        interface = "org.mpris.MediaPlayer2.Player"
        monitor = self.start("dbus-monitor", "--profile", "interface=" + interface,
                             stdout=subprocess.PIPE)
        next(line for line in monitor.stdout if "NameLost" in line)
        action()
        subprocess.run(["dbus-send", "--type=method_call", "--dest=org.freedesktop.DBus", "/",
                        interface + ".End"])
        calls = (line.split()[-1] for line in monitor.stdout if line.startswith("mc"))
        return list(itertools.takewhile(lambda call: call != "End", calls))

    def position(self):
        return float(self.playerctl("position"))

    def assert_plays_on_after(self, write):
        self.play_in_mpv(self.song, "--start=30")
        self.wait_until(lambda: self.position() > 30.5)
        before, begin = self.position(), time.monotonic()
        self.assertEqual(self.calls_while(write), ["Pause", "Play"])
        passed = self.position() - before
        self.assertTrue(0 < passed < time.monotonic() - begin + 0.5, passed)
        here = self.position()
        self.wait_until(lambda: self.position() > here + 0.5)

    def test_a_playing_song_is_set_and_plays_on(self):
        self.assert_plays_on_after(
            lambda: self.tagwright("set", self.song, "title=New", "lyrics=" + "la " * 40_000))
        self.assertEqual(mutagen.File(self.song)["TIT2"].text, ["New"])

    def test_a_playing_song_is_gathered_for_and_plays_on(self):
        other = self.folder / "other.mp3"
        other.write_bytes(self.song.read_bytes())
        self.tagwright("set", other, "year=1987", "track=2/2")
        definitions = self.folder / "none.plist"
        definitions.write_text("<plist><dict><key>sourcelist</key><array/></dict></plist>")
        self.assert_plays_on_after(lambda: self.tagwright(
            "gather", "--want", "year", "--definitions", definitions, self.song, other))
        self.assertEqual(str(mutagen.File(self.song)["TDRC"]), "1987")

    def test_who_does_not_play_the_song_is_left_alone(self):
        other = self.folder / "other.mp3"
        other.write_bytes(self.song.read_bytes())
        for player in ([self.song, "--pause"], [other]):
            with self.subTest(player):
                mpv = self.play_in_mpv(*player)
                self.assertEqual(
                    self.calls_while(lambda: self.tagwright("set", self.song, f"title={player}")),
                    [])
                mpv.kill()
                mpv.wait()

    def test_players_with_faults_hold_nothing_up(self):
        for fault, calls in {
            "never answers": "",
            "stops answering": "Pause\n",
            "dies": "Pause\n",
            "addresses that are none": "",
            "huge": "",
            "a stream": "",
            "wrong types": "",
            "paused": "",
        }.items():
            with self.subTest(fault):
                usual = self.tagwright("set", self.song, f"title=before {fault}")
                player = self.stand_in("aaa", fault, str(self.song))
                took = self.tagwright("set", self.song, f"title=with {fault}")
                self.assertLess(took - usual, 2)
                self.assertEqual(mutagen.File(self.song)["TIT2"].text, [f"with {fault}"])
                player.kill()
                self.assertEqual(player.communicate()[0], calls)

    def test_the_one_that_plays_is_held_beside_others_with_faults(self):
        self.stand_in("aaa", "never answers", str(self.song))
        self.stand_in("bbb", "wrong types", str(self.song))
        self.stand_in("ccc", "a stream", str(self.song))
        self.assert_plays_on_after(lambda: self.tagwright("set", self.song, "title=New"))

    def test_the_library_program_reads_a_written_song_again(self):
        settings = self.folder / ".config/tagwright/tagwright.conf"
        settings.parent.mkdir(parents=True)
        settings.write_text("[General]\nkeepiTunesRefreshed=true\n")
        asked = self.folder / "asked"
        osascript = self.folder / "osascript"
        osascript.write_text(f"#!/bin/sh\ncat >>'{asked}'; echo --- >>'{asked}'; echo true\n")
        osascript.chmod(0o755)
        path = f"{self.folder}:{os.environ['PATH']}"
        with unittest.mock.patch.dict(os.environ, PATH=path, XDG_CONFIG_HOME=""):
            self.tagwright("set", self.song, "title=New")
        playing, refreshing = asked.read_text().split("---\n")[1:-1]
        self.assertIn("player state", playing)
        self.assertIn('set theTitle to "Old"\nset theArtist to "Nila Oster"\n', refreshing)
        self.assertIn("refresh theTrack", refreshing)

    def test_without_a_bus_songs_are_written(self):
        bus = self.start("dbus-daemon", "--session", "--nofork", "--print-address",
                         stdout=subprocess.PIPE)
        stuck = bus.stdout.readline().strip()
        bus.send_signal(signal.SIGSTOP)
        for address in ("", "unix:path=/nonexistent/bus", stuck):
            with unittest.mock.patch.dict(os.environ, DBUS_SESSION_BUS_ADDRESS=address,
                                          XDG_RUNTIME_DIR=""):
                self.tagwright("set", self.song, f"title=at {address}")
            self.assertEqual(mutagen.File(self.song)["TIT2"].text, [f"at {address}"])


if __name__ == "__main__":
    if "TAGWRIGHT_OWN_BUS" not in os.environ:
        os.environ["TAGWRIGHT_OWN_BUS"] = "yes"
        os.execvp("dbus-run-session",
                  ["dbus-run-session", "--", sys.executable, *sys.argv])
    unittest.main()
