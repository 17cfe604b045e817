#include "sources/lyricspage.h"

/// The first two lines are the markers, the rest is the page.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArrayView bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const QString text = LyricsPage::decoded(bytes, {});
    const QString begin = text.section(u'\n', 0, 0);
    const QString markup = text.section(u'\n', 2);
    (void)LyricsPage::linkBehind(markup, begin);
    (void)LyricsPage::lyricsAndSongsLyrics(markup, begin, text.section(u'\n', 1, 1));
    (void)LyricsPage::leosLyrics(markup, begin);
    (void)LyricsPage::askLyrics(markup);
    return 0;
}
