#!/usr/bin/env python3
"""Every text stands in every language, made from the English that is shown today, with the same
values put in and as many keys to press."""

import re
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path

TEXTS = Path(__file__).parents[2] / "resources" / "texts"
VALUES = re.compile(r"%L?[0-9n@]|<[a-z/]+>|&(?=\w)")


def texts_of(language):
    """Id -> (source, translation in all its forms)."""
    messages = ElementTree.parse(TEXTS / f"tagwright_{language}.ts").getroot().iter("message")
    return {message.get("id"): (message.findtext("source"),
                                ["".join(form.itertext()) for form in message.iter("numerusform")]
                                or [message.findtext("translation")])
            for message in messages}


def values_in(forms):
    return [sorted(VALUES.findall(form)) for form in forms]


class Translations(unittest.TestCase):
    def test_each_language_is_whole(self):
        english = texts_of("en")
        for language in ("de", "fr"):
            translated = texts_of(language)
            self.assertEqual(list(translated), list(english))
            for name, (source, forms) in english.items():
                with self.subTest(language=language, id=name):
                    self.assertEqual(translated[name][0], source)
                    self.assertEqual(values_in(translated[name][1]), values_in(forms))


if __name__ == "__main__":
    unittest.main()
