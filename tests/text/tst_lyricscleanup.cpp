#include "text/lyricscleanup.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestLyricsCleanup : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleaning();
};

void TestLyricsCleanup::cleaning()
{
    QCOMPARE(LyricsCleanup::cleanUpLyrics(u"im"_s), u"im"_s);
    LyricsCleanup::setSubstitutions({{u"im"_s, u"I'm"_s},
                                     {u"i im"_s, u"it's"_s},
                                     {u" ,"_s, u","_s},
                                     {u"``"_s, u"\""_s},
                                     {u""_s, u"x"_s}});
    QCOMPARE(LyricsCleanup::cleanUpLyrics(u"im, time imp (im)\nim"_s),
             u"I'm, time imp (I'm)\nI'm"_s);
    QCOMPARE(LyricsCleanup::cleanUpLyrics(u"i im IM im-in"_s), u"it's IM im-in"_s);
    QCOMPARE(LyricsCleanup::cleanUpLyrics(u"a ,b ``c``"_s), u"a,b \"c\""_s);
}

QTEST_GUILESS_MAIN(TestLyricsCleanup)
#include "tst_lyricscleanup.moc"
