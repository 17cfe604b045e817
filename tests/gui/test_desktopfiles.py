#!/usr/bin/env python3
"""The desktop's own checkers accept what is installed beside the programs, and the manual page
has every option that the program has."""

import os
import re
import subprocess
import unittest
from pathlib import Path

PACKAGING = Path(__file__).parents[2] / "packaging"
COMMANDS = ["", "show", "set", "regenerate", "gather", "sites", "demo"]


def output_of(*command):
    done = subprocess.run(command, capture_output=True, text=True, check=False)
    return done.returncode, done.stdout + done.stderr


class DesktopFiles(unittest.TestCase):
    def assert_quiet(self, *command):
        self.assertEqual(output_of(*command), (0, ""))

    def test_checkers_accept_them(self):
        self.assert_quiet("desktop-file-validate", PACKAGING / "tagwright.desktop")
        # The project has no domain of its own that could name it.
        status, said = output_of("appstreamcli", "validate", "--no-net",
                                 "--override=cid-desktopapp-is-not-rdns=info",
                                 PACKAGING / "tagwright.metainfo.xml")
        self.assertEqual(status, 0, said)
        for page in PACKAGING.glob("*.1"):
            self.assert_quiet("groff", "-man", "-ww", "-z", page)

    def test_manual_has_every_option(self):
        page = (PACKAGING / "tagwright.1").read_text(encoding="utf-8").replace("\\-", "-")
        for command in COMMANDS:
            _, text = output_of(os.environ["TAGWRIGHT_PROGRAM"], *command.split(), "--help")
            options = set(re.findall(r"--[a-z0-9-]+", text))
            self.assertIn("--help", options)
            self.assertEqual([option for option in options if option not in page], [], command)


if __name__ == "__main__":
    unittest.main()
