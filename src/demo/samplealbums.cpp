#include "demo/samplealbums.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

const QString freeDB = u"FreeDBInterface"_s;
const QString cdUniverse = u"CDUniverseInterface"_s;
const QString tower = u"TowerInterface"_s;
const QString ckDigest = u"CKDigestInterface"_s;
const QString fredoCovers = u"FredoCoversInterface"_s;
const QString bestCovers = u"BestCoversInterface"_s;
const QString coverKingdom = u"CoverKingdomInterface"_s;
const QString googleImage = u"GoogleImageInterface"_s;

} // namespace

const std::vector<SampleAlbum> &sampleAlbums()
{
    static const std::vector<SampleAlbum> albums{
        // Known everywhere, so that every source can be tried with it.
        {u"folk/5a0b3c06"_s,
         u"Nila Oster"_s,
         u"Harbour Lights"_s,
         u"2007"_s,
         u"Folk"_s,
         {u"Low Water"_s, u"Harbour Lights"_s, u"The Chandler's Daughter"_s, u"Fog Signal"_s,
          u"Nine Fathoms"_s, u"Slack Tide"_s},
         {freeDB, cdUniverse, tower, ckDigest, fredoCovers, bestCovers, coverKingdom, googleImage}},
        // Every other cover hangs at one place only.
        {u"rock/7c0d1f05"_s,
         u"The Lanterns"_s,
         u"Paper Moons"_s,
         u"1987"_s,
         u"Rock"_s,
         {u"Paper Moons"_s, u"Last Tram Home"_s, u"Neon Rain"_s, u"Second Floor Window"_s,
          u"Goodnight, Arcade"_s},
         {freeDB, coverKingdom}},
        {u"rock/7c0d1f06"_s,
         u"The Lanterns"_s,
         u"Paper Moons (Anniversary Edition)"_s,
         u"2004"_s,
         u"Rock"_s,
         {u"Paper Moons"_s, u"Last Tram Home"_s, u"Neon Rain"_s, u"Second Floor Window"_s,
          u"Goodnight, Arcade"_s, u"Neon Rain (Demo)"_s},
         {freeDB}},
        {u"jazz/410a2204"_s,
         u"Édouard Vael"_s,
         u"Café Minuit"_s,
         u"1961"_s,
         u"Jazz"_s,
         {u"Café Minuit"_s, u"Rue des Étoiles"_s, u"L'Été Indien"_s, u"Dernier Métro"_s},
         {freeDB, fredoCovers}},
        {{},
         u"Kessa Mirowen"_s,
         u"Glass Orchard"_s,
         u"1998"_s,
         u"Electronic"_s,
         {u"Winter Fruit"_s, u"Glass Orchard"_s, u"Static Bloom"_s, u"Undergrowth"_s,
          u"Ladder Song"_s},
         {cdUniverse}},
        {{},
         u"Ferran Ostrow"_s,
         u"The Salt Road Soundtrack"_s,
         u"1979"_s,
         u"Soundtrack"_s,
         {u"Main Title"_s, u"Caravan at Dawn"_s, u"The Well"_s, u"Sandglass"_s,
          u"Last Camp and Finale"_s},
         {tower}},
        {{},
         u"Señora Malva"_s,
         u"Corazón de Papel"_s,
         u"1968"_s,
         u"Latin"_s,
         {u"Corazón de Papel"_s, u"La Niña y el Cañón"_s, u"Mañana, Quizás"_s, u"Tren de Agua"_s},
         {tower}},
        {u"misc/930c4506"_s,
         u"Various Artists"_s,
         u"Midnight Parade of Small Stars"_s,
         u"2001"_s,
         u"Pop"_s,
         {u"Ceiling Planets"_s, u"Half a Comet"_s, u"Borrowed Telescope"_s, u"Pocket Aurora"_s,
          u"Night Bus to Saturn"_s, u"Lullaby for Satellites"_s},
         {freeDB, googleImage}},
        {u"rock/390b1b05"_s,
         u"Brindle Coast"_s,
         u"Brindle Coast"_s,
         u"1993"_s,
         u"Alternative"_s,
         {u"Undertow Radio"_s, u"Shingle"_s, u"Brindle Coast"_s, u"Off-Season"_s,
          u"Sodium Lights"_s},
         {freeDB, ckDigest}},
        {u"folk/6b0c2a07"_s,
         u"Halloran Quay"_s,
         u"Tidewrack"_s,
         u"1974"_s,
         u"Folk-Rock"_s,
         {u"Tidewrack"_s, u"The Wool Ship"_s, u"Marram"_s, u"Salt in the Fiddle"_s,
          u"Lamplighter's Reel"_s, u"Cold Harbour Lane"_s, u"Bell Buoy"_s},
         {freeDB, bestCovers}},
        {u"country/2e081105"_s,
         u"Fenwick & Daughters"_s,
         u"Bread & Thunder"_s,
         u"1982"_s,
         u"Country"_s,
         {u"Bread & Thunder"_s, u"Tin Roof Waltz"_s, u"County Line"_s, u"Mother's Almanac"_s,
          u"Gravel and Grace"_s},
         {freeDB, googleImage}},
    };
    return albums;
}

std::vector<SampleAlbum> sampleAlbumsAt(const QString &className)
{
    std::vector<SampleAlbum> albums;
    std::copy_if(sampleAlbums().begin(), sampleAlbums().end(), std::back_inserter(albums),
                 [&](const SampleAlbum &album) { return album.sources.contains(className); });
    return albums;
}
