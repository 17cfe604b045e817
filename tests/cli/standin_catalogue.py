"""25 made-up albums of 12 songs, as the living services know them: with the single, the bootleg,
the reissues and the best-of that stand beside them, and with what some of them lack."""

import dataclasses
import unicodedata
import uuid
from pathlib import Path

VARIOUS = "Various Artists"
SONGS = 12

CASES = Path(__file__).resolve().parents[1] / "data" / "cases"


def cells_of(name):
    return [line.split("\t") for line in (CASES / name).read_text().splitlines()]


# artist (joined ones with " & "), album, year, genre (of the votes the best that fits)
ALBUMS = tuple((artist, album, int(year), genre)
               for artist, album, year, genre in cells_of("catalogue.tsv"))
FIRSTS = "Amber Broken Copper Distant Early Falling Golden Hidden Iron Jealous Kinder Lonely".split()
SECONDS = ("Harbour Moon Bridge Elevator Light Room Trumpet Hour Signal Knock Summer River Letter "
           "Number Tide Tram Mirror Heart Bell Kite Rhyme Static Street Weather Wave").split()
TITLES = {(int(album), int(number)): title for album, number, title in cells_of("titles.tsv")}

REISSUED, BOOTLEGGED, SINGLED, ON_DISCS, COLLECTED = 1, 2, 3, 5, 0
ART_OF_GROUP_ALONE, WITHOUT_ART = 9, 10  # albums
INSTRUMENTAL, SEARCHED, ONLY_SYNCED, WITHOUT_WORDS = (6, 1), (6, 2), (7, 2), (7, 3)  # songs


@dataclasses.dataclass
class Song:
    id: str
    album: int
    number: int
    title: str
    artist: str
    seconds: int
    releases: list

    @property
    def key(self):
        return self.album, self.number

    @property
    def words(self):
        if self.key in (INSTRUMENTAL, WITHOUT_WORDS):
            return None
        return f"{self.title}, the first line\nand the other line of {self.title}"


@dataclasses.dataclass
class Group:
    id: str
    title: str
    artist: str
    kind: str
    secondary: tuple
    album: int
    releases: list

    @property
    def date(self):
        return min(release.date for release in self.releases)


@dataclasses.dataclass
class Release:
    id: str
    group: Group
    date: str
    discs: list  # of lists of songs
    status: str = "Official"

    @property
    def songs(self):
        return sum(self.discs, [])

    @property
    def has_art(self):
        return (self.status == "Official" and self.group.album != WITHOUT_ART and
                (self.group.album != ART_OF_GROUP_ALONE or self is not self.group.releases[0]))


def identifier(*names):
    return str(uuid.uuid5(uuid.NAMESPACE_OID, "/".join(map(str, names))))


def credits(artist):
    """(name, what joins it to the next one)"""
    names = artist.split(" & ")
    return [(name, " & " if name is not names[-1] else "") for name in names]


def tokens(text):
    """The words that a search index makes of a text."""
    plain = unicodedata.normalize("NFKD", text.replace("'", "")).lower()
    plain = "".join(c for c in plain if not unicodedata.combining(c))
    return "".join(c if c.isalnum() else " " for c in plain).split()


class Catalogue:
    def __init__(self):
        self.songs, self.groups, self.releases = [], {}, {}
        for album, (artist, title, year, _) in enumerate(ALBUMS):
            self.add_album(album, artist, title, year)
        own = {album: [s for s in self.songs if s.album == album] for album in range(len(ALBUMS))}
        self.add_release(self.group(COLLECTED, "The Best of Nila Oster", "Nila Oster", "Album",
                                    ("Compilation",)), "1999-01-01", [own[0][:3] + own[14][:3]])
        self.add_release(self.group(BOOTLEGGED, "Live at the Pier", "Quay West", "Album"),
                         "1990", [own[BOOTLEGGED][:6]], "Bootleg")
        self.add_release(self.group(SINGLED, own[SINGLED][0].title, "Marigold Pike", "Single"),
                         "1998-11", [own[SINGLED][:1]])

    def song(self, album, number, artist):
        title = TITLES.get((album, number), f"{FIRSTS[number % SONGS]} {SECONDS[album]}")
        made = Song(identifier("song", album, number), album, number, title, artist,
                    150 + 7 * number + album, [])
        self.songs.append(made)
        return made

    def group(self, album, title, artist, kind, secondary=()):
        made = Group(identifier("group", title, artist), title, artist, kind, secondary, album, [])
        self.groups[made.id] = made
        return made

    def add_release(self, group, date, discs, status="Official"):
        made = Release(identifier("release", group.id, date), group, date, discs, status)
        self.releases[made.id] = made
        group.releases.append(made)
        for song in made.songs:
            song.releases.append(made)

    def add_album(self, album, artist, title, year):
        of = [ALBUMS[n][0] if artist == VARIOUS else artist for n in range(SONGS)]
        songs = [self.song(album, n, of[n - 1]) for n in range(1, SONGS + 1)]
        group = self.group(album, title, artist, "Album",
                           ("Compilation",) if artist == VARIOUS else ())
        discs = [songs[:6], songs[6:]] if album == ON_DISCS else [songs]
        self.add_release(group, f"{year}-05-14", discs)
        if album == REISSUED:
            bonus = [self.song(album, n, artist) for n in (13, 14)]
            self.add_release(group, "1987-10", [songs[:6], songs[6:]])  # the two sides of an LP
            self.add_release(group, "2011", [songs + bonus])
        if album == ART_OF_GROUP_ALONE:
            self.add_release(group, f"{year + 1}", discs)

    @property
    def files(self):
        return [song for song in self.songs if song.number <= SONGS]

    @staticmethod
    def tags(song):
        """What a file of the song is to hold at the end: album, year, track, genre."""
        _, title, year, genre = ALBUMS[song.album]
        on_disc = song.album == ON_DISCS
        of = 6 if on_disc else SONGS
        return title, str(year), f"{(song.number - 1) % of + 1}/{of}", genre
