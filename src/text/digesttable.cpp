#include "text/digesttable.h"

#include "text/simplifier.h"

#include <QCoreApplication>
#include <QHash>
#include <QStringDecoder>

namespace {

/// With more of them it is no table, and nobody would read on.
constexpr qsizetype mostProblems = 20;

constexpr QByteArrayView byteOrderMark("\xEF\xBB\xBF");

bool isPassedOver(const QByteArray &line)
{
    return !line.contains('\t') && (line.trimmed().isEmpty() || line.startsWith('#'));
}

class TableReader {
public:
    DigestTable read(const QByteArray &table);

private:
    /// Takes in a line; what is wrong with it, empty when nothing is.
    QString take(const QByteArray &line);
    QString takeAlbum(const QString &artist, const QString &title, const QString &path);

    DigestTable mDigest;
    QHash<QString, int> mLines; ///< where each key stands
    int mLine = 0;
};

DigestTable TableReader::read(const QByteArray &table)
{
    qsizetype start = table.startsWith(byteOrderMark) ? byteOrderMark.size() : 0;
    for (qsizetype end = 0; end >= 0; start = end + 1) {
        end = table.indexOf('\n', start);
        const QByteArray line = table.mid(start, end < 0 ? -1 : end - start);
        ++mLine;
        const QString reason = isPassedOver(line) ? QString() : take(line);
        if (!reason.isEmpty())
            mDigest.problems.append({mLine, reason});
        if (mDigest.problems.size() >= mostProblems)
            break;
    }
    return std::move(mDigest);
}

QString TableReader::take(const QByteArray &line)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder.decode(line);
    if (decoder.hasError())
        return qtTrId("ErrorDigestNotUTF8");
    const QStringList fields = text.split(u'\t');
    if (fields.size() != 3)
        return qtTrId("ErrorDigestFields").arg(fields.size());
    return takeAlbum(fields[0].trimmed(), fields[1].trimmed(), fields[2].trimmed());
}

QString TableReader::takeAlbum(const QString &artist, const QString &title, const QString &path)
{
    if (title.isEmpty() || path.isEmpty())
        return qtTrId("ErrorDigestEmptyField");
    const QString key = digestKey(artist, title);
    const int before = mLines.value(key);
    if (before == 0)
        mLines.insert(key, mLine);
    else if (mDigest.paths.value(key).toString() != path)
        return qtTrId("ErrorDigestTwoPaths").arg(before);
    mDigest.paths[key] = path;
    return {};
}

} // namespace

QString digestKey(const QString &artist, const QString &albumTitle)
{
    return HVUtility::simplifyString(artist + albumTitle);
}

DigestTable digestOfTable(const QByteArray &table)
{
    return TableReader().read(table);
}
