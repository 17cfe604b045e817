#include "demo/samplelyrics.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

const QString lyricsAndSongs = u"LyricsAndSongsInterface"_s;
const QString leosLyrics = u"LeosLyricsInterface"_s;
const QString askLyrics = u"AskLyricsInterface"_s;

} // namespace

const std::vector<SampleLyrics> &sampleLyrics()
{
    static const std::vector<SampleLyrics> songs{
        // Known everywhere, so that every source can be tried with it.
        {u"Nila Oster"_s,
         u"Low Water"_s,
         {u"The boats lie down on the river's bed"_s,
          u"And count the stones they lean upon,"_s,
          u"The gulls have read what the ebb has said"_s,
          u"And half of it is gone."_s,
          {},
          u"Low water, low water,"_s,
          u"Leave me the bell and the rope;"_s,
          u"What the tide took out on a Tuesday night"_s,
          u"It carries back like hope."_s},
         {lyricsAndSongs, leosLyrics, askLyrics}},
        // Every other text stands at one place only.
        {u"Halloran Quay"_s,
         u"Bell Buoy"_s,
         {u"Nothing pulls and nothing pushes,"_s,
          u"Nothing asks me where I've been,"_s,
          {},
          u"Eel grass, lamp oil, broken rushes,"_s,
          u"And the sea as flat as tin."_s},
         {lyricsAndSongs}},
        {u"The Lanterns"_s,
         u"Last Tram Home"_s,
         {u"Your name in chalk on a ticket stub,"_s,
          u"Rain on the overhead wire,"_s,
          u"The driver hums & the windows scrub"_s,
          u"The town to a smear of fire."_s,
          {},
          u"We're the last tram home, love,"_s,
          u"Two seats & one coat."_s},
         {leosLyrics}},
        {u"Édouard Vael"_s,
         u"Rue des Étoiles"_s,
         {u"Rue des Étoiles, à l'heure où l'on ferme,"_s,
          u"Un chat traversait le café désert,"_s,
          u"Et toi, tu riais, la lumière en berne,"_s,
          u"Les poches trouées, la tête à l'envers."_s,
          {},
          u"Garçon, l'addition : deux étés, un hiver."_s},
         {askLyrics}},
    };
    return songs;
}

std::vector<SampleLyrics> sampleLyricsAt(const QString &className)
{
    std::vector<SampleLyrics> songs;
    std::copy_if(sampleLyrics().begin(), sampleLyrics().end(), std::back_inserter(songs),
                 [&](const SampleLyrics &song) { return song.sources.contains(className); });
    return songs;
}
