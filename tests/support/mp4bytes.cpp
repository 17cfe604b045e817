#include "support/mp4bytes.h"

#include "base/bytes.h"
#include "support/id3bytes.h"

namespace {

// No objects: other files make tables before the objects of this one are made.
constexpr QByteArrayView placeholder("@@@");
constexpr QByteArrayView chunkHead("[chunk");

QByteArray placeOf(const QByteArray &file, char chunk)
{
    return number(static_cast<quint32>(file.indexOf(chunkHead.toByteArray() + chunk)));
}

QByteArray chunkAt(const QByteArray &file, quint64 place)
{
    const bool isChunk = file.mid(qsizetype(place), chunkHead.size()) == chunkHead;
    return isChunk ? file.mid(qsizetype(place) + chunkHead.size(), 1) : "?";
}

} // namespace

QByteArray atom(const QByteArray &name, const QByteArray &body)
{
    return number(static_cast<quint32>(body.size()) + 8) + name + body;
}

QByteArray wideAtom(const QByteArray &name, const QByteArray &body)
{
    return number(1) + name + number(0) + number(static_cast<quint32>(body.size()) + 16) + body;
}

QByteArray dataAtom(int type, const QByteArray &value)
{
    return atom("data", number(static_cast<quint32>(type)) + number(0) + value);
}

QByteArray item(const QByteArray &name, int type, const QByteArray &value)
{
    return atom(name, dataAtom(type, value));
}

QByteArray placeTable(const QByteArray &name, const QByteArray &chunks)
{
    QByteArray body = number(0) + number(static_cast<quint32>(chunks.size()));
    for (const char chunk : chunks)
        body += (name == "co64" ? number(0) : QByteArray()) + placeholder.toByteArray() + chunk;
    return atom(name, body);
}

QByteArray track(const QByteArray &table)
{
    return atom(
        "trak",
        atom("tkhd", QByteArray(84, '\0'))
            + atom("mdia", atom("mdhd", QByteArray(24, '\0')) + atom("minf", atom("stbl", table))));
}

QByteArray movie(const QByteArray &tracks, const QByteArray &userData)
{
    return atom("moov", atom("mvhd", QByteArray(100, '\0')) + tracks + userData);
}

QByteArray userData(const QByteArray &items, const QByteArray &behind)
{
    const QByteArray handler = atom("hdlr", QByteArray(8, '\0') + "mdirappl" + QByteArray(9, '\0'));
    return atom("udta", atom("meta", number(0) + handler + atom("ilst", items) + behind));
}

QByteArray mediaData(const QByteArray &chunks)
{
    QByteArray body = "head";
    for (const char chunk : chunks)
        body += chunkHead.toByteArray() + chunk + ']';
    return atom("mdat", body);
}

QByteArray withPlaces(QByteArray file)
{
    for (qsizetype at = file.indexOf(placeholder); at >= 0; at = file.indexOf(placeholder, at))
        file.replace(at, 4, placeOf(file, file[at + placeholder.size()]));
    return file;
}

QStringList chunksPointedTo(const QByteArray &file)
{
    QStringList pointedTo;
    for (const auto &[name, width] : {std::pair("stco", 4), std::pair("co64", 8)}) {
        for (qsizetype at = file.indexOf(name); at >= 0; at = file.indexOf(name, at + 1)) {
            ByteReader reader(QByteArrayView(file).sliced(at + 8));
            QByteArray chunks;
            for (quint32 left = reader.u32(); left > 0; --left)
                chunks += chunkAt(file, width == 4 ? reader.u32() : reader.u64());
            pointedTo += QString::fromLatin1(chunks);
        }
    }
    return pointedTo;
}
