"""Songs that a site could not be asked about, and `gather --retry` once it is back."""

import json
import signal
import subprocess
import unittest

import test_programs as programs
from test_programs import PROGRAM, Site, song

FREEDB = "FreeDBInterface"


class Retry(programs.ProgramCase):
    def setUp(self):
        super().setUp()
        self.list = self.home / ".local/state/tagwright/retry.json"
        for name, title in (("a", "Low Water"), ("b", "Fog Signal"), ("c", "Nobody Knows")):
            song(self.music / "album" / f"{name}.mp3", TIT2=title, TPE1="Nila Oster")

    def listed(self):
        if not self.list.exists():
            return []
        return [entry["path"][len(str(self.music)) + 1:]
                for entry in json.loads(self.list.read_text())["songs"]]

    def retry(self, *options, status=0):
        return self.run_program("gather", "--retry", "--definitions", self.definitions(), *options,
                                status=status)

    def test_only_what_could_not_be_asked_is_taken_up_again(self):
        Site.status = 503
        *songs, summary = self.gather()
        self.assertEqual([s["unasked"] for s in songs], [[FREEDB]] * 3)
        self.assertEqual(summary["summary"], {"processed": 3, "modified": 0, "failed": 0,
                                              "cancelled": False, "leftAlone": [FREEDB], "unasked": {
                                                  FREEDB: [s["path"] for s in songs]}})
        Site.status = 200
        song(self.music / "z.mp3", TIT2="Low Water", TPE1="Nila Oster")
        before = self.list.read_bytes()
        self.assertIn("2 modified", self.retry("--dry-run").stdout)
        self.assertEqual(self.list.read_bytes(), before)
        done = self.retry("--json").stdout.splitlines()
        *songs, summary = map(json.loads, done)
        self.assertEqual([s["written"] for s in songs], [True, True, False])
        self.assertNotIn("unasked", summary["summary"])
        self.assertEqual(self.listed(), [])
        self.assertIn("Nothing to retry", self.retry().stdout)
        self.assertEqual(len(self.retry("--json").stdout.splitlines()), 1)

    def test_a_site_that_is_gone_is_told_of_with_what_to_do(self):
        nowhere = {"queryPOST": "http://127.0.0.1:1/search"}
        done = self.run_program("gather", "--definitions", self.definitions(**nowhere), self.music)
        self.assertIn(f"{FREEDB} could not be asked about 3 songs; tagwright gather --retry takes "
                      f"them up again\n    {self.music}/album/a.mp3\n", done.stdout)
        self.assertEqual(len(self.listed()), 3)

    def test_songs_that_are_gone_leave_the_list_and_folders_that_are_away_stay(self):
        song(self.music / "other" / "d.mp3", TIT2="Last Tram Home", TPE1="The Lanterns")
        Site.status = 503
        self.gather("--dry-run")
        self.assertEqual(self.listed(), [])
        self.gather()
        Site.status = 200
        (self.music / "album" / "b.mp3").unlink()
        (self.music / "other").rename(self.home / "away")
        done = self.retry("--want", "year")
        self.assertIn("b.mp3: is gone", done.stderr)
        self.assertIn("1 of its songs", done.stderr)
        # Only the year was asked about: the rest of what was missing is still to be asked.
        self.assertEqual(self.listed(), ["album/a.mp3", "album/c.mp3", "other/d.mp3"])
        (self.home / "away").rename(self.music / "other")
        self.assertIn("2 modified", self.retry().stdout)
        self.assertEqual(self.listed(), [])

    def test_a_damaged_list_counts_as_empty(self):
        self.list.parent.mkdir(parents=True)
        for damaged in ("", "{", "[]", '{"version": 2}', '{"version": 1, "songs": [{"path": "x"}]}'):
            with self.subTest(damaged):
                self.list.write_text(damaged)
                done = self.retry()
                self.assertIn("retry.json: is damaged", done.stderr)
                self.assertIn("Nothing to retry", done.stdout)
        Site.status = 503
        self.gather()
        self.assertEqual(len(self.listed()), 3)

    def test_two_programs_put_in_their_own_changes_alone(self):
        Site.status, Site.delay = 503, 0.2
        song(self.music / "other" / "d.mp3", TIT2="Last Tram Home", TPE1="The Lanterns")
        definitions = self.definitions()
        running = [subprocess.Popen([PROGRAM, "gather", "--definitions", definitions,
                                     self.music / name], env=self.env, stdout=subprocess.DEVNULL)
                   for name in ("album", "other")]
        self.assertEqual([program.wait(60) for program in running], [0, 0])
        self.assertEqual(sorted(self.listed()),
                         ["album/a.mp3", "album/b.mp3", "album/c.mp3", "other/d.mp3"])

    def test_songs_that_an_interrupt_left_out_are_not_listed(self):
        Site.status, Site.delay = 503, 1.5
        program = subprocess.Popen([PROGRAM, "gather", "--definitions", self.definitions(),
                                    self.music], env=self.env, stdout=subprocess.PIPE, text=True)
        program.stdout.readline()
        program.send_signal(signal.SIGINT)
        program.communicate(timeout=30)
        self.assertEqual((program.returncode, self.listed()), (1, ["album/a.mp3"]))


if __name__ == "__main__":
    unittest.main()
