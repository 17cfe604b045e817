#include "demo/samplealbums.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

const std::vector<SampleAlbum> &sampleAlbums()
{
    static const std::vector<SampleAlbum> albums{
        {u"folk/5a0b3c06"_s,
         u"Nila Oster"_s,
         u"Harbour Lights"_s,
         u"2007"_s,
         u"Folk"_s,
         {u"Low Water"_s, u"Harbour Lights"_s, u"The Chandler's Daughter"_s, u"Fog Signal"_s,
          u"Nine Fathoms"_s, u"Slack Tide"_s},
         {u"FreeDBInterface"_s}},
        {u"rock/7c0d1f05"_s,
         u"The Lanterns"_s,
         u"Paper Moons"_s,
         u"1987"_s,
         u"Rock"_s,
         {u"Paper Moons"_s, u"Last Tram Home"_s, u"Neon Rain"_s, u"Second Floor Window"_s,
          u"Goodnight, Arcade"_s},
         {u"FreeDBInterface"_s}},
        {u"rock/7c0d1f06"_s,
         u"The Lanterns"_s,
         u"Paper Moons"_s,
         u"2004"_s,
         u"Rock"_s,
         {u"Paper Moons"_s, u"Last Tram Home"_s, u"Neon Rain"_s, u"Second Floor Window"_s,
          u"Goodnight, Arcade"_s, u"Neon Rain (Demo)"_s},
         {u"FreeDBInterface"_s}},
        {u"jazz/410a2204"_s,
         u"Édouard Vael"_s,
         u"Café Minuit"_s,
         u"1961"_s,
         u"Jazz"_s,
         {u"Café Minuit"_s, u"Rue des Étoiles"_s, u"L'Été Indien"_s, u"Dernier Métro"_s},
         {u"FreeDBInterface"_s}},
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
