#include "sources/coverkingdominterface.h"

#include "text/simplifier.h"

#include <algorithm>
#include <vector>

namespace {

/// The page of the artists that begin with anything but a letter from A to Z.
constexpr QLatin1String otherLetters{"1"};

QString indexLetter(const QString &name)
{
    const QChar letter = name.isEmpty() ? QChar() : name.front().toUpper();
    return letter >= u'A' && letter <= u'Z' ? QString(letter) : QString(otherLetters);
}

/// Reads a cell from the front to the back.
class CellReader {
public:
    explicit CellReader(QStringView cell)
        : mRest(cell)
    {
    }

    /// What stands before the next `end`, which is passed; empty, with nothing left to read, when
    /// there is none.
    QStringView upTo(QChar end)
    {
        const qsizetype found = mRest.indexOf(end);
        const QStringView text = found < 0 ? QStringView() : mRest.first(found);
        mRest = found < 0 ? QStringView() : mRest.sliced(found + 1);
        return text;
    }

    void skip(qsizetype characters) { mRest = mRest.sliced(std::min(characters, mRest.size())); }

private:
    QStringView mRest;
};

/// A scan of an album: `[17],"a.jpg","Front"`.
struct Scan {
    int album = -1; ///< index into the list of albums; negative when it is no number
    QStringView file;
};

Scan scanIn(QStringView cell)
{
    CellReader reader(cell);
    reader.upTo(u'[');
    bool isNumber = false;
    const int album = reader.upTo(u']').toInt(&isNumber);
    reader.upTo(u',');
    reader.skip(1); // the quote before the name
    return {isNumber ? album : -1, reader.upTo(u'"')};
}

/// An album: `<a href="nila_oster">Nila Oster - Salt</a>`.
struct ListedAlbum {
    QStringView folder;
    QStringView title;
};

ListedAlbum albumIn(QStringView cell)
{
    CellReader reader(cell);
    reader.upTo(u'"');
    const QStringView folder = reader.upTo(u'"');
    reader.upTo(u'>');
    return {folder, reader.upTo(u'<')};
}

/// The front covers with a file and an album, in page order. They are looked through from the
/// last to the first: one whose album is no single cell ends that, and those before it do not
/// count, since the lists are not what the site writes.
std::vector<Scan> frontScans(const QList<QStringList> &rows, const QList<QStringList> &albums)
{
    std::vector<Scan> scans;
    for (auto row = rows.crbegin(); row != rows.crend(); ++row) {
        if (row->size() != 1 || !row->front().contains(QLatin1String("\"Front\"")))
            continue;
        const Scan scan = scanIn(row->front());
        if (scan.album < 0 || scan.album >= albums.size())
            continue;
        if (albums[scan.album].size() != 1)
            break;
        if (!scan.file.isEmpty())
            scans.push_back(scan);
    }
    std::reverse(scans.begin(), scans.end());
    return scans;
}

} // namespace

void CoverKingdomInterface::startSearch()
{
    // Compilations are filed under the artist's letter, too.
    if (artist() && albumTitle())
        addIndexSearch(indexLetter(*artist()),
                       [this](const FetchResult &result) { ckArtistAlbumListCompleted(result); });
}

void CoverKingdomInterface::ckArtistAlbumListCompleted(const FetchResult &result)
{
    const QString prefix = resources().textOrEmpty(QStringLiteral("coverAudioPrefix"));
    if (prefix.isEmpty())
        return;
    const auto page = usablePage(result);
    const QString wanted = wantedTitle();
    if (!page || wanted.isEmpty())
        return;
    const QString folder = indexLetter(*artist()) + u'/';
    const QMap<QString, QString> covers = frontCoversFromHTML(*page);
    for (auto cover = covers.begin(); cover != covers.end(); ++cover)
        if (HVUtility::simplifyString(cover.key()) == wanted)
            addAlbumWithPicture(prefix, folder + cover.value());
}

/// The path of the front cover by the album's title as listed. The first of two scans with the
/// same title counts. Each album is read once, however many scans name it.
QMap<QString, QString> CoverKingdomInterface::frontCoversFromHTML(const QString &page) const
{
    const QList<QStringList> albums = rowsOn(page, QStringLiteral("mainListParse"));
    const QList<QStringList> scans = rowsOn(page, QStringLiteral("resourceListParse"));
    QMap<QString, QString> covers;
    QSet<int> read;
    for (const Scan &scan : frontScans(scans, albums)) {
        if (read.contains(scan.album))
            continue;
        read << scan.album;
        const ListedAlbum album = albumIn(albums[scan.album].front());
        const QString title = album.title.toString();
        if (!album.folder.isEmpty() && !title.isEmpty() && !covers.contains(title))
            covers[title] = QStringLiteral("%1_%2").arg(album.folder, scan.file);
    }
    return covers;
}

QString CoverKingdomInterface::wantedTitle() const
{
    return HVUtility::simplifyString(
        isCompilation() ? *albumTitle() : *artist() + QLatin1String(" - ") + *albumTitle());
}
