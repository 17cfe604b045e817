"""The living services on loopback hosts: the music database, its cover archive with the two hosts
that it sends on to, the lyrics service, the music shop and the service that knows songs by their
sound, with their limits, errors and gaps.

Run by itself it prints definitions that lead there, for a try by hand."""

import collections
import contextlib
import hashlib
import http.server
import json
import os
import plistlib
import re
import sys
import threading
import time
import urllib.parse
from pathlib import Path

from standin_catalogue import (ALBUMS, INSTRUMENTAL, ON_DISCS, ONLY_SYNCED, SEARCHED, VARIOUS,
                               Catalogue, credits, identifier, tokens)

DEFAULTS = Path(__file__).resolve().parents[2] / "resources" / "defaultres.xml"
SOURCELIST = plistlib.loads(DEFAULTS.read_bytes())["sourcelist"]
FASTER = 10  # than the real rules
MUSICBRAINZ, COVERS, LYRICS, SHOP = SERVICES = (
    "MusicBrainzInterface", "CoverArtArchiveInterface", "LRCLIBInterface", "DeezerInterface")
SOUND = "AcoustIDLookup"
ARCHIVE, STORAGE = "archive", "storage"  # where the covers' own host sends on to
HOSTS = {MUSICBRAINZ: "127.0.0.1", COVERS: "127.0.0.2", ARCHIVE: "127.0.0.3",
         STORAGE: "localhost", LYRICS: "127.0.0.4", SHOP: "127.0.0.5", SOUND: "127.0.0.6"}
REAL = {MUSICBRAINZ: "https://musicbrainz.org", COVERS: "https://coverartarchive.org",
        LYRICS: "https://lrclib.net", SHOP: "https://api.deezer.com",
        SOUND: "https://api.acoustid.org"}
LEAST_INTERVAL = {MUSICBRAINZ: 1 / FASTER, LYRICS: 0.2 / FASTER, SHOP: 0.1 / FASTER,
                  SOUND: 0.33 / FASTER}  # seconds
JITTER = 0.06  # seconds by which a request may come late, and the next one not
LATENCY = 0.01  # seconds that an answer takes, so that requests side by side are seen

HELP = {"help": "For usage, please see: https://musicbrainz.org/development/mmd"}
BUSY = {"error": "The MusicBrainz web server is currently busy. Please try again later."} | HELP
TOO_FAST = {"error": "Your requests are exceeding the allowable rate limit."} | HELP
PAGE = "<!DOCTYPE html><html><head><title>Sorry</title></head><body>" + "x" * 200

Answer = collections.namedtuple("Answer", "status body kind headers",
                                defaults=("application/json", {}))


def in_json(value, status=200, **headers):
    return Answer(status, json.dumps(value, ensure_ascii=False).encode(), headers=headers)


# How a service may fail, whatever is asked.
FAILURES = {
    "refused": None,
    "busy": in_json(BUSY, 503, **{"Retry-After": "0", "X-RateLimit-Zone": "search"}),
    "busy, no time": in_json(BUSY, 503),
    "busy in a 200": in_json(BUSY),
    "own limit": in_json(TOO_FAST, 503, **{"Retry-After": "1", "X-RateLimit-Remaining": "0"}),
    "too many": Answer(429, PAGE.encode(), "text/html", {"Retry-After": "1"}),
    "too many, no time": Answer(429, PAGE.encode(), "text/html"),
    "broken": Answer(500, PAGE.encode(), "text/html"),
    "a page": Answer(200, PAGE.encode(), "text/html"),
    "garbage": Answer(200, b'{"data": [}'),
    "nothing": Answer(200, b""),
    "another kind": Answer(200, b"\x89PNG\r\n" + bytes(99), "image/png"),
    "sent to nobody": Answer(302, b"", "text/html", {"Location": "http://127.0.0.7:1/login"}),
    "sent to a file": Answer(302, b"", "text/html", {"Location": "file:///etc/hostname"}),
    "too long": None,
    "an error in a 200": in_json({"error": {"type": "Exception", "message": "Quota limit exceeded",
                                            "code": 4}}),
    "cut": None,
    "stalled": None,
}
# What is sent of the body in those ways, and megabytes behind it.
LENGTHS = {"cut": 0.5, "too long": 1 + 35}


def picture(album, width):
    """A grey JPEG, of another grey for each album: every block but the first is two bits long."""
    def segment(marker, hexed):
        body = bytes.fromhex(hexed)
        return b"\xff" + bytes([marker]) + (len(body) + 2).to_bytes(2, "big") + body
    blocks = (-(-width // 8)) ** 2
    bits = f"10{64 + album:07b}0" + "00" * (blocks - 1)
    bits += "1" * (-len(bits) % 8)
    return (b"\xff\xd8" + segment(0xdb, "00" + "08" * 64)
            + segment(0xc0, f"08{width:04x}{width:04x}01011100")
            + segment(0xc4, "000101" + "00" * 14 + "0007" + "1001" + "00" * 15 + "00")
            + segment(0xda, "010100003f00") + int(bits, 2).to_bytes(len(bits) // 8, "big")
            + b"\xff\xd9")


def sha1(data):
    return hashlib.sha1(data).hexdigest()


class Refused(Exception):
    """A request that the real service would not take."""


def artist_credit(artist, in_search):
    return [{"name": name, "artist": {"id": identifier(name), "name": name, "sort-name": name}}
            | ({} if in_search and not join else {"joinphrase": join})
            for name, join in credits(artist)]


class MusicBrainz:
    TERM = re.compile(r"(\w+):\(((?:\\.|[^()\\])*)\)(?:( AND )|( (?:OR )?)|$)")
    UNESCAPED = re.compile(r'(?<!\\)(?:\\\\)*[-+!{}\[\]^"~*?:/|&]|\b(AND|OR|NOT)\b')
    FIELDS = {"recording": lambda s: s.title, "release": lambda s: s.title,
              "artist": lambda s: s.artist}

    def __init__(self, catalogue):
        self.catalogue = catalogue

    def answer(self, path, query):
        if query.get("fmt") != "json":
            raise Refused("XML was asked for")
        match path.removeprefix("/ws/2/").split("/"):
            case ["recording"]:
                return self.found(query, "recordings", self.catalogue.songs, self.recording,
                                  {"release": lambda s: " ".join(r.group.title
                                                                 for r in s.releases)})
            case ["release"]:
                return self.found(query, "releases", self.catalogue.releases.values(),
                                  lambda r: self.release(r) | {"media": self.media(r)},
                                  {"release": lambda r: r.group.title,
                                   "artist": lambda r: r.group.artist})
            case ["release", name]:
                if set(query.get("inc", "").split(" ")) - {
                        "artist-credits", "recordings", "release-groups", "genres", "tags",
                        "media", "artists"}:
                    raise Refused(f"inc {query['inc']}")
                release = self.catalogue.releases.get(name)
                return in_json(self.looked_up(release)) if release else in_json(
                    {"error": "Not Found"} | HELP, 404)
        raise Refused("no such address")

    def found(self, query, name, things, told, fields):
        """Words of a term are joined by OR; the best of the answer has the score 100."""
        clauses = self.clauses(query.get("query", ""))
        scored = []
        for thing in things:
            score = 0
            for field, words, is_needed in clauses:
                text = (fields | {f: g for f, g in self.FIELDS.items() if f not in fields})[field]
                has = set(tokens(text(thing)))
                common = len(has & words) / len(has | words)
                if is_needed and not common:
                    break
                score += common
            else:
                if score:
                    scored.append((score, thing))
        scored.sort(key=lambda each: -each[0])
        limit = int(query.get("limit", 25))
        limit = limit if 1 <= limit <= 100 else 25
        offset = int(query.get("offset", 0))
        entries = [told(thing) | {"score": round(100 * score / scored[0][0])}
                   for score, thing in scored[offset:offset + limit]]
        return in_json({"created": "2026-11-21T09:15:00.000Z", "count": len(scored),
                        "offset": offset, name: entries})

    def clauses(self, query):
        found, end, is_needed = [], 0, False
        while end < len(query):
            term = self.TERM.match(query, end)
            if not term or term[1] not in self.FIELDS or self.UNESCAPED.search(term[2]):
                raise Refused(f"query {query}")
            is_needed = is_needed or bool(term[3])
            found.append((term[1], set(tokens(re.sub(r"\\(.)", r"\1", term[2]))), is_needed))
            is_needed, end = bool(term[3]), term.end()
        if not found:
            raise Refused("a blank query")
        return found

    @staticmethod
    def group(group, in_search):
        kinds = list(group.secondary)
        return ({"id": group.id, "title": group.title, "primary-type": group.kind}
                | ({"secondary-types": kinds} if kinds or not in_search else {})
                | ({} if in_search else {"first-release-date": group.date,
                                         "disambiguation": ""}))

    def release(self, release):
        entry = {"id": release.id, "title": release.group.title, "status": release.status,
                 "count": len(release.discs), "track-count": len(release.songs),
                 "artist-credit": artist_credit(release.group.artist, in_search=True),
                 "release-group": self.group(release.group, in_search=True)}
        is_undated = release.group.album % 5 == 4  # as some are in searches
        return entry | ({} if is_undated else {"date": release.date, "country": "SE"})

    @staticmethod
    def media(release):
        return [{"format": "CD", "disc-count": 1, "track-count": len(disc)}
                for disc in release.discs]

    def recording(self, song):
        entry = {"id": song.id, "title": song.title, "video": None,
                 "artist-credit": artist_credit(song.artist, in_search=True),
                 "releases": [self.release(release) | {"media": [self.track_of(release, song)]}
                              for release in song.releases]}
        return entry | ({} if song.number == 12 else
                        {"length": None if song.number == 11 else song.seconds * 1000})

    @staticmethod
    def track_of(release, song):
        position, disc = next((i, d) for i, d in enumerate(release.discs, 1) if song in d)
        return {"position": position, "format": "CD", "track-count": len(disc),
                "track-offset": disc.index(song),
                "track": [{"id": identifier("track", release.id, song.id), "title": song.title,
                           "number": str(disc.index(song) + 1)}]}

    def looked_up(self, release):
        album = release.group.album
        voted = [{"name": ALBUMS[album][3].lower(), "count": 3}, {"name": "zither", "count": 1}]
        is_front = release.has_art
        return {
            "id": release.id, "title": release.group.title, "status": release.status,
            "date": release.date, "country": "SE", "barcode": None, "asin": None,
            "artist-credit": artist_credit(release.group.artist, in_search=False),
            "cover-art-archive": {"artwork": is_front, "front": is_front, "back": False,
                                  "count": int(is_front), "darkened": False},
            "release-group": self.group(release.group, in_search=False)
            | {"genres": [{"id": identifier("genre")} | each for each in voted], "tags": voted},
            "genres": [], "tags": [{"name": "seaside", "count": 9}] if album % 2 else [],
            "media": [{"position": i, "title": "", "format": "CD", "track-count": len(disc),
                       "track-offset": 0, "tracks": [self.track(song, n, release.group.artist)
                                                     for n, song in enumerate(disc, 1)]}
                      for i, disc in enumerate(release.discs, 1)]}

    @staticmethod
    def track(song, position, album_artist):
        length = None if song.number == 11 else song.seconds * 1000
        number = f"A{position}" if song.album == ON_DISCS else str(position)
        return {"id": identifier("track", song.id), "position": position, "number": number,
                "title": song.title, "length": length,
                "recording": {"id": song.id, "title": song.title, "length": length,
                              "first-release-date": min(r.date for r in song.releases)},
                "artist-credit": artist_credit(song.artist, in_search=False)}


class CoverArt:
    """Its own host, and the two that it sends on to."""

    def __init__(self, catalogue, address):
        self.catalogue, self.address = catalogue, address

    def own(self, path, query):
        parts = [part for part in path.split("/") if part]
        if len(parts) < 2 or parts[0] not in ("release", "release-group"):
            raise Refused("no such address")
        if not re.fullmatch("[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}", parts[1]):
            raise Refused("no identifier")
        group = self.catalogue.groups.get(parts[1])
        releases = group.releases if group else [self.catalogue.releases.get(parts[1])]
        release = next((r for r in releases if r and r.has_art), None)
        if not release:
            return Answer(404, b"<!doctype html><h1>Not Found</h1><p>No cover art", "text/html")
        name = "index.json"
        if len(parts) > 2:
            size = re.fullmatch(r"(?:front|1)(?:-(250|500|1200))?(?:\.jpg)?", parts[2])
            if not size:
                raise Refused("no such picture")
            name = f"mbid-{release.id}-1{f'_thumb{size[1]}' if size[1] else ''}.jpg"
        target = f"{self.address[ARCHIVE]}/download/mbid-{release.id}/{name}"
        return Answer(307, f"See: {target}".encode(), "text/plain", {"Location": target})

    def archive(self, path, query):
        target = self.address[STORAGE] + path.replace("/download/", "/7/items/")
        return Answer(302, b"", "text/html", {"Location": target})

    def storage(self, path, query):
        release = self.catalogue.releases[path.split("/mbid-")[1][:36]]
        if not path.endswith("index.json"):
            size = re.search(r"_thumb(\d+)", path)
            return Answer(200, picture(release.group.album, int(size[1]) if size else 1400),
                          "image/jpeg")
        base = f"{self.address[COVERS]}/release/{release.id}/1"
        return in_json({"images": [{
            "types": ["Front"], "front": True, "back": False, "comment": "", "approved": True,
            "id": "1" if release.group.album % 2 else 1, "image": base + ".jpg",
            "thumbnails": {"250": base + "-250.jpg", "500": base + "-500.jpg",
                           "small": base + "-250.jpg", "large": base + "-500.jpg"}}],
            "release": f"http://musicbrainz.org/release/{release.id}"})


class Lyrics:
    NONE = in_json({"message": "Failed to find specified track", "name": "TrackNotFound",
                    "statusCode": 404}, 404)

    def __init__(self, catalogue):
        self.songs = collections.defaultdict(list)
        for song in catalogue.songs:
            self.songs[self.plain(song.title)].append(song)

    @staticmethod
    def plain(text):
        return " ".join(tokens(text))

    def answer(self, path, query):
        named = [song for song in self.songs[self.plain(query.get("track_name", ""))]
                 if self.plain(query.get("artist_name", song.artist)) == self.plain(song.artist)]
        if path == "/api/search":
            return in_json([self.record(song) for song in named][:20])
        if path != "/api/get":
            raise Refused("no such address")
        if not query.get("track_name") or not query.get("artist_name"):
            raise Refused("track_name and artist_name are wanted")
        seconds = float(query.get("duration", 0))
        if "duration" in query and not 1 <= seconds <= 3600:
            raise Refused("duration")
        exact = [song for song in named if song.key != SEARCHED
                 and self.plain(query.get("album_name", ALBUMS[song.album][1]))
                 == self.plain(ALBUMS[song.album][1])
                 and abs(song.seconds - (seconds or song.seconds)) <= 2]
        return in_json(self.record(exact[0])) if exact else self.NONE

    @staticmethod
    def record(song):
        synced = song.words and "".join(f"[00:{10 + 4 * n}.40] {line}\n"
                                        for n, line in enumerate(song.words.split("\n")))
        return {"id": 9000000 + song.album * 100 + song.number, "name": song.title,
                "trackName": song.title, "artistName": song.artist,
                "albumName": ALBUMS[song.album][1],
                "duration": None if song.number == 11 else float(song.seconds),
                "instrumental": song.key == INSTRUMENTAL,
                "plainLyrics": None if song.key == ONLY_SYNCED else song.words,
                "syncedLyrics": synced if song.number % 2 or song.key == ONLY_SYNCED else None}


class Shop:
    """It knows the own albums, errors come with status 200, and a page of a list leads on."""

    def __init__(self, catalogue, address):
        self.catalogue, self.address = catalogue, address
        self.releases = [group.releases[0] for group in catalogue.groups.values()
                         if group.releases[0].status == "Official" and group.kind == "Album"]

    def answer(self, path, query):
        match path.strip("/").split("/"):
            case ["search"] | ["search", "track"]:
                found = [self.track(song, release) for release in self.releases
                         for song in release.songs if self.fits(song, release, query)]
            case ["search", "album"]:
                found = [self.album(release) for release in self.releases
                         if any(self.fits(song, release, query) for song in release.songs)]
            case ["album", number, *more]:
                release = self.releases[int(number) - 1]
                tracks = [self.track(song, release) for song in release.songs]
                return in_json(self.listed(tracks, path, query) if more
                               else self.whole(release, tracks))
            case ["cover", album, size]:
                return Answer(200, picture(int(album), int(size.split("x")[0])), "image/jpeg")
            case _:
                return in_json({"error": {"type": "InvalidQueryException", "code": 600,
                                          "message": "Unknown path components"}})
        return in_json(self.listed(found, path, query))

    @staticmethod
    def fits(song, release, query):
        has = set(tokens(f"{song.artist} {song.title} {release.group.title}"))
        return set(tokens(re.sub(r'(artist|album|track):(?=")', "", query.get("q", "")))) <= has

    def listed(self, found, path, query):
        limit, index = min(100, int(query.get("limit", 25))), int(query.get("index", 0))
        more = {"next": f"{self.address[SHOP]}{path}?" + urllib.parse.urlencode(
            query | {"index": index + limit})} if index + limit < len(found) else {}
        return {"data": found[index:index + limit], "total": len(found)} | more

    def album(self, release):
        number = self.releases.index(release) + 1
        cover = f"{self.address[SHOP]}/cover/{release.group.album}"
        return {"id": number, "title": release.group.title, "nb_tracks": len(release.songs),
                "record_type": "album", "type": "album", "genre_id": 466,
                "cover": f"{self.address[SHOP]}/album/{number}/image",
                "cover_small": f"{cover}/56x56.jpg", "cover_medium": f"{cover}/250x250.jpg",
                "cover_big": f"{cover}/500x500.jpg", "cover_xl": f"{cover}/1000x1000.jpg",
                "artist": self.artist(release.group.artist)}

    @staticmethod
    def artist(name):
        return {"id": 5080 if name == VARIOUS else len(name), "name": name, "type": "artist"}

    def whole(self, release, tracks):
        return self.album(release) | {
            "release_date": f"{ALBUMS[release.group.album][2]}-05-14", "upc": "0",
            "genres": {"data": [{"id": 1, "name": ALBUMS[release.group.album][3]}]},
            "tracks": {"data": tracks}}

    def track(self, song, release):
        disc = next(disc for disc in release.discs if song in disc)
        return {"id": song.album * 100 + song.number, "title": song.title, "type": "track",
                "duration": song.seconds, "track_position": disc.index(song) + 1,
                "disk_number": release.discs.index(disc) + 1,
                "artist": self.artist(song.artist), "album": self.album(release)}


class Sounds:
    """Asked by a form. `songs` maps fingerprints to songs; decoders may differ a little."""

    KEY = "standin-key"

    def __init__(self, songs):
        self.songs = songs

    def answer(self, path, form):
        if path != "/v2/lookup" or not form.get("duration", "").isdigit():
            raise Refused(f"{path}: {form}")
        if form.get("client") != self.KEY:
            return in_json({"status": "error",
                            "error": {"code": 4, "message": "invalid API key"}}, 400)
        song = self.like(form["fingerprint"])
        bare = {"id": identifier("recording alone")}
        results = [{"id": identifier("sound"), "score": 0.97,
                    "recordings": [bare, self.recording(song, form)]},
                   {"id": identifier("other"), "score": 0.31}] if song else []
        return in_json({"status": "ok", "results": results})

    def like(self, fingerprint):
        return next((song for known, song in self.songs.items()
                     if len(os.path.commonprefix([known, fingerprint])) > len(known) / 2), None)

    @staticmethod
    def recording(song, form):
        told = {"id": song.id, "title": song.title, "duration": song.seconds,
                "artists": [{"id": identifier(name), "name": name}
                            | ({"joinphrase": join} if join else {})
                            for name, join in credits(song.artist)]}
        groups = [{"id": release.group.id, "title": release.group.title,
                   "type": release.group.kind} for release in song.releases]
        return told | ({"releasegroups": groups} if "releasegroups" in form["meta"].split() else {})


class Services:
    """All of them. `failing` maps a service to one of FAILURES; `broken` tells what a real service
    would have refused or asked to leave. `sounds`: songs by fingerprint."""

    def __init__(self, catalogue=None, failing=None, sounds=None):
        self.failing = failing or {}
        if COVERS in self.failing:  # which, cut short, still sends on
            self.failing[STORAGE] = self.failing[COVERS]
        self.sounds = sounds or {}
        self.requests = collections.Counter()
        self.broken = []
        self.times = collections.defaultdict(list)
        self.under_way = collections.Counter()
        self.lock = threading.Lock()
        self.over = threading.Event()
        self.servers = {name: self.server(name, host) for name, host in HOSTS.items()}
        self.address = {name: f"http://{HOSTS[name]}:{server.server_port}"
                        for name, server in self.servers.items()}
        self.open(catalogue or Catalogue())

    def open(self, catalogue):
        covers = CoverArt(catalogue, self.address)
        self.answers = {MUSICBRAINZ: MusicBrainz(catalogue).answer, COVERS: covers.own,
                        ARCHIVE: covers.archive, STORAGE: covers.storage,
                        LYRICS: Lyrics(catalogue).answer,
                        SHOP: Shop(catalogue, self.address).answer,
                        SOUND: Sounds(self.sounds).answer}
        for name, server in self.servers.items():
            if self.failing.get(name) == "refused":
                server.server_close()
            else:
                threading.Thread(target=server.serve_forever, args=(0.05,), daemon=True).start()

    def server(self, service, host):
        services = self

        class Handler(http.server.BaseHTTPRequestHandler):
            protocol_version = "HTTP/1.1"
            disable_nagle_algorithm = True

            def do_GET(self):
                with contextlib.suppress(BrokenPipeError, ConnectionResetError):
                    services.serve(service, self)

            do_POST = do_GET

            def log_message(self, *arguments):
                pass

        server = http.server.ThreadingHTTPServer((host, 0), Handler)
        server.daemon_threads = True
        return server

    def serve(self, service, handler):
        # Whatever becomes of it: on the connection the next request follows.
        handler.form = handler.rfile.read(int(handler.headers.get("Content-Length", 0))).decode()
        with self.lock:
            self.requests[service] += 1
            self.times[service].append(time.monotonic())
            self.under_way[service] += 1
            if service == LYRICS and self.under_way[service] > 1:
                self.broken.append(f"{service}: {self.under_way[service]} requests at a time")
        failure = self.failing.get(service)
        if failure == "stalled":
            self.over.wait(20)
        time.sleep(LATENCY)
        answer = FAILURES.get(failure) or self.answered(service, handler)
        with self.lock:  # before the client can have the whole answer and ask again
            self.under_way[service] -= 1
        self.send(handler, answer, LENGTHS.get(failure, 1))

    def answered(self, service, handler):
        path, _, query = handler.path.partition("?")
        query = handler.form if handler.command == "POST" else query
        agent = handler.headers.get("User-Agent", "")
        if service in (MUSICBRAINZ, LYRICS) and not re.fullmatch(
                r"Tagwright/[\w.]+ \( ?\S+(://|@)\S+ ?\)", agent):
            self.broken.append(f"{service}: called by {agent!r}")
            return Answer(403, PAGE.encode(), "text/html")
        try:
            values = dict(urllib.parse.parse_qsl(query, keep_blank_values=True,
                                                 strict_parsing=bool(query)))
            return self.answers[service](urllib.parse.unquote(path), values)
        except (Refused, KeyError, ValueError, IndexError) as reason:
            self.broken.append(f"{service}: {handler.path}: {reason!r}")
            return in_json({"error": str(reason)} | HELP, 400)

    @staticmethod
    def send(handler, answer, length):
        """Of a body that is not whole its share is sent; a body may go on with blanks."""
        handler.send_response(answer.status)
        for name, value in ({"Content-Type": answer.kind} | answer.headers).items():
            handler.send_header(name, value)
        blanks = int(max(0, length - 1))
        handler.send_header("Content-Length", str(len(answer.body) + blanks * 1_000_000))
        handler.end_headers()
        handler.wfile.write(answer.body[:int(len(answer.body) * min(1, length))])
        for _ in range(blanks):
            handler.wfile.write(b" " * 1_000_000)
        handler.close_connection = handler.close_connection or length != 1

    def broken_rules(self):
        """What came too fast on the average of some stretch, and all that was wrong otherwise."""
        broken = list(self.broken)
        for service, interval in LEAST_INTERVAL.items():
            ahead, last = 0.0, None
            for came in self.times[service]:
                ahead = max(0.0, ahead + interval - (came - last)) if last is not None else 0.0
                last = came
                if ahead > JITTER and interval > 0:
                    broken.append(f"{service}: {ahead:.3f} s ahead of its pace")
                    break
        return broken

    def definitions(self, sources, changes=None):
        """The built-in ones with the stand-in's addresses and hastened paces."""
        values = plistlib.loads(DEFAULTS.read_bytes())
        values["sourcelist"] = list(sources)
        for source in REAL:
            if definition := values.get(f"res_{source}"):
                definition |= {key: self.at_home(value) for key, value in definition.items()}
                for pause in "minInterval", "busyPause":
                    definition[pause] = definition.get(pause, 0) / FASTER
                definition |= (changes or {}).get(source, {})
        return plistlib.dumps(values)

    def at_home(self, value):
        for service, real in REAL.items():
            value = value.replace(real, self.address[service]) if isinstance(value, str) else value
        return value

    def close(self):
        self.over.set()
        for name, server in self.servers.items():
            if self.failing.get(name) != "refused":
                server.shutdown()
                server.server_close()


if __name__ == "__main__":
    services = Services()
    sys.stdout.buffer.write(services.definitions(SERVICES))
    sys.stdout.flush()
    with contextlib.suppress(KeyboardInterrupt):
        threading.Event().wait()
