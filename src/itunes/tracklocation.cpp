#include "itunes/tracklocation.h"

#include "text/unknownencoding.h"

#include <QDir>

#include <algorithm>

namespace {

constexpr QStringView fileScheme = u"file:";

/// -1 where the character is no digit.
int hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// What an escape at the start stands for; -1 when there is none.
int escapedByte(QByteArrayView bytes)
{
    if (bytes.size() < 3 || bytes[0] != '%')
        return -1;
    const int high = hexDigit(bytes[1]);
    const int low = hexDigit(bytes[2]);
    return high >= 0 && low >= 0 ? high * 16 + low : -1;
}

/// Only file URLs have one; it may belong to another machine.
std::optional<QString> pathOfFileUrl(const QString &url)
{
    if (!url.startsWith(fileScheme, Qt::CaseInsensitive))
        return {};
    QStringView rest = QStringView(url).mid(fileScheme.size());
    QString host;
    if (rest.startsWith(u"//")) {
        const qsizetype slash = rest.indexOf(u'/', 2);
        host = rest.mid(2, slash < 0 ? -1 : slash - 2).toString();
        rest = rest.mid(2 + host.size());
    }
    QString path = withoutPercentEscapes(rest);
    if (host.isEmpty() || host.compare(u"localhost", Qt::CaseInsensitive) == 0)
        return path;
    return u'/' + host + path; // a drive or a server of Windows
}

/// From the root on, without "." and "..", which could lead out of a moved folder.
QStringList namesOf(QStringView path)
{
    QStringList names;
    for (const QStringView name : path.split(u'/', Qt::SkipEmptyParts)) {
        if (name != u".." && name != u".")
            names << name.toString();
        else if (name == u".." && !names.isEmpty())
            names.removeLast();
    }
    return names;
}

QString composed(const QString &name)
{
    return name.normalized(QString::NormalizationForm_C);
}

bool isSameName(const QString &there, const QString &composedName)
{
    return there.compare(composedName, Qt::CaseInsensitive) == 0
        || composed(there).compare(composedName, Qt::CaseInsensitive) == 0;
}

} // namespace

QString withoutPercentEscapes(QStringView escaped)
{
    const QByteArray utf8 = escaped.toUtf8();
    QByteArray bytes;
    bytes.reserve(utf8.size());
    for (qsizetype i = 0; i < utf8.size(); ++i) {
        const int byte = escapedByte(QByteArrayView(utf8).sliced(i));
        bytes += byte >= 0 ? static_cast<char>(byte) : utf8[i];
        i += byte >= 0 ? 2 : 0;
    }
    return textOfUnknownEncoding(bytes);
}

void MovedFolders::add(const QString &from, const QString &to)
{
    if (!QDir::isAbsolutePath(to))
        return;
    QString path = pathOfFileUrl(from).value_or(from);
    QStringList names = namesOf(path.replace(u'\\', u'/'));
    for (QString &name : names)
        name = composed(name);
    mMoves.push_back({names, QDir::cleanPath(to)});
}

const MovedFolders::Move *MovedFolders::moveOf(const QStringList &names) const
{
    const Move *longest = nullptr;
    for (const Move &move : mMoves) {
        if (longest != nullptr && move.from.size() <= longest->from.size())
            continue;
        if (move.from.size() <= names.size()
            && std::equal(
                move.from.begin(), move.from.end(), names.begin(),
                [](const QString &from, const QString &name) { return isSameName(name, from); }))
            longest = &move;
    }
    return longest;
}

QString MovedFolders::pathHere(const QString &path) const
{
    const QStringList names = namesOf(path);
    const Move *const move = moveOf(names);
    if (move == nullptr)
        return u'/' + names.join(u'/');
    return (QStringList(move->to) + names.mid(move->from.size())).join(u'/');
}

std::optional<QString> pathOfLocation(const QString &location, const MovedFolders &moved)
{
    const auto path = pathOfFileUrl(location);
    if (!path || !path->startsWith(u'/') || path->contains(QChar(u'\0')))
        return {};
    return moved.pathHere(*path);
}
