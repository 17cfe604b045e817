#include "reader.h"

#include "sources/lyricspage.h"

/// The first two lines are the markers, the rest is the page.
void read(const QByteArray &bytes)
{
    const QString text = LyricsPage::decoded(bytes, {});
    const QString begin = text.section(u'\n', 0, 0);
    const QString markup = text.section(u'\n', 2);
    (void)LyricsPage::linkBehind(markup, begin);
    (void)LyricsPage::lyricsAndSongsLyrics(markup, begin, text.section(u'\n', 1, 1));
    (void)LyricsPage::leosLyrics(markup, begin);
    (void)LyricsPage::askLyrics(markup);
}
