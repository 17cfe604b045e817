#include "itunes/playlistentries.h"

#include "base/bytes.h"
#include "text/integervalue.h"
#include "text/unknownencoding.h"

#include <QMap>
#include <QXmlStreamReader>

#include <algorithm>
#include <utility>

namespace {

/// Lists of more songs are damage, or made to fill the memory.
constexpr qsizetype maxEntries = 200'000;

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

/// The first location of each track.
QStringList entriesOfXSPF(const QByteArray &bytes)
{
    QXmlStreamReader xml(bytes);
    QStringList entries;
    bool isInside = false;
    bool isTrackNamed = true;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isDTD() && xml.text().contains(u'['))
            xml.raiseError(QStringLiteral("a document type with declarations of its own"));
        if (!xml.isStartElement())
            continue;
        if (!std::exchange(isInside, true) && xml.name() != u"playlist")
            xml.raiseError(QStringLiteral("<%1> instead of <playlist>").arg(xml.name()));
        if (xml.name() == u"track") {
            isTrackNamed = false;
        } else if (xml.name() == u"location" && !isTrackNamed) {
            entries << xml.readElementText(QXmlStreamReader::SkipChildElements).trimmed();
            isTrackNamed = true;
        }
        checkCount(entries.size());
    }
    if (xml.hasError())
        throw MalformedData(
            QStringLiteral("line %1: %2").arg(xml.lineNumber()).arg(xml.errorString()));
    return entries;
}

} // namespace

QStringList playlistEntries(const QByteArray &bytes, PlaylistFormat format)
{
    QStringList entries = format == PlaylistFormat::M3U ? entriesOfM3U(bytes)
        : format == PlaylistFormat::PLS                 ? entriesOfPLS(bytes)
                                                        : entriesOfXSPF(bytes);
    entries.removeAll(QString());
    return entries;
}
