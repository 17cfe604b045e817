#include "itunes/playlistentries.h"

#include "base/bytes.h"
#include "text/integervalue.h"
#include "text/unknownencoding.h"

#include <QMap>
#include <QXmlStreamReader>

#include <algorithm>

namespace {

/// Lists of more songs are damage, or made to fill the memory.
constexpr qsizetype maxEntries = 200'000;

/// Deeper nesting is made to fill the memory.
constexpr int maxDepth = 64;

void checkCount(qsizetype entries)
{
    if (entries > maxEntries)
        throw MalformedData(QStringLiteral("more than %1 entries").arg(maxEntries));
}

/// Calls with each line that is not empty. Lines end as on this system, on Windows, or as on old
/// Macs with a carriage return alone.
template<typename Line>
void forEachLine(const QByteArray &bytes, Line call)
{
    const QString text = textOfUnknownEncoding(bytes);
    qsizetype begin = 0;
    const auto isEnd = [](QChar c) { return c == u'\n' || c == u'\r'; };
    while (begin < text.size()) {
        const auto end = std::find_if(text.begin() + begin, text.end(), isEnd) - text.begin();
        const QStringView line = QStringView(text).mid(begin, end - begin).trimmed();
        if (!line.isEmpty())
            call(line);
        begin = end + 1;
    }
}

QStringList entriesOfM3U(const QByteArray &bytes)
{
    QStringList entries;
    forEachLine(bytes, [&](QStringView line) {
        if (line.startsWith(u'#'))
            return;
        entries << line.toString();
        checkCount(entries.size());
    });
    return entries;
}

/// Lines such as "File12=song.mp3", in any order.
QStringList entriesOfPLS(const QByteArray &bytes)
{
    QMap<int, QString> entries;
    forEachLine(bytes, [&](QStringView line) {
        const qsizetype equals = line.indexOf(u'=');
        if (equals < 0 || !line.startsWith(u"file", Qt::CaseInsensitive))
            return;
        const QStringView number = line.mid(4, equals - 4);
        entries.insert(integerValue(number), line.mid(equals + 1).trimmed().toString());
        checkCount(entries.size());
    });
    return entries.values();
}

class XspfReader {
public:
    explicit XspfReader(const QByteArray &bytes)
        : mXml(bytes)
    {
    }

    /// The first location of each track.
    QStringList entries();

private:
    void beginElement();
    void endElement();
    [[noreturn]] void fail(const QString &reason) const;

    QXmlStreamReader mXml;
    int mDepth = 0;
    QString mText; ///< since the last start tag
    bool mIsTrackNamed = true;
    QStringList mEntries;
};

void XspfReader::fail(const QString &reason) const
{
    throw MalformedData(QStringLiteral("line %1: %2").arg(mXml.lineNumber()).arg(reason));
}

void XspfReader::beginElement()
{
    if (mDepth == 0 && mXml.name() != u"playlist")
        fail(QStringLiteral("<%1> instead of <playlist>").arg(mXml.name()));
    if (++mDepth > maxDepth)
        fail(QStringLiteral("nested deeper than %1 levels").arg(maxDepth));
    if (mXml.name() == u"track")
        mIsTrackNamed = false;
    mText.resize(0);
}

void XspfReader::endElement()
{
    --mDepth;
    if (mXml.name() != u"location" || mIsTrackNamed)
        return;
    mIsTrackNamed = true;
    mEntries << mText.trimmed();
    checkCount(mEntries.size());
}

QStringList XspfReader::entries()
{
    while (!mXml.atEnd()) {
        const auto token = mXml.readNext();
        if (token == QXmlStreamReader::StartElement)
            beginElement();
        else if (token == QXmlStreamReader::EndElement)
            endElement();
        else if (token == QXmlStreamReader::Characters)
            mText += mXml.text();
        else if (token == QXmlStreamReader::DTD && mXml.text().contains(u'['))
            fail(QStringLiteral("a document type with declarations of its own"));
    }
    if (mXml.hasError())
        fail(mXml.errorString());
    return mEntries;
}

} // namespace

QStringList playlistEntries(const QByteArray &bytes, PlaylistFormat format)
{
    QStringList entries = format == PlaylistFormat::M3U ? entriesOfM3U(bytes)
        : format == PlaylistFormat::PLS                 ? entriesOfPLS(bytes)
                                                        : XspfReader(bytes).entries();
    entries.removeAll(QString());
    return entries;
}
