#include "tags/id3v1reader.h"

#include "base/bytes.h"
#include "tags/genretable.h"
#include "tags/id3strings.h"
#include "tags/id3v1layout.h"
#include "text/integervalue.h"

namespace {

using namespace ID3v1Layout;

class Reader {
public:
    Reader(QByteArrayView tag, const ID3Dialect &dialect, ID3Contents &into)
        : mTag(tag)
        , mDialect(dialect)
        , mContents(into)
        , mIsVersion22(into.readVersion && into.readVersion->startsWith(u"2.2"))
    {
    }

    void read();

private:
    void set(const std::optional<QString> &text, const char16_t *v22ID, const char16_t *v24ID);
    void readComment();
    void readGenre();

    [[nodiscard]] std::optional<QString> text(qsizetype at, qsizetype length) const
    {
        return ID3Strings::id3v1String(mTag, at, length);
    }
    [[nodiscard]] std::optional<QString> year() const;
    [[nodiscard]] std::optional<QString> track() const;
    [[nodiscard]] int byteAt(qsizetype at) const { return static_cast<unsigned char>(mTag[at]); }

    QByteArrayView mTag;
    const ID3Dialect &mDialect;
    ID3Contents &mContents;
    bool mIsVersion22;
};

void Reader::set(const std::optional<QString> &text, const char16_t *v22ID, const char16_t *v24ID)
{
    const QString id(reinterpret_cast<const QChar *>(mIsVersion22 ? v22ID : v24ID));
    if (text && !mContents.frames.firstObjectForFrameID(id, id))
        mContents.frames.setString(*text, id);
}

/// Kept: a year must be above 1000 here, and above 999 in the ID3v2 frames.
std::optional<QString> Reader::year() const
{
    const auto year = text(yearAt, yearLength);
    return year && integerValue(*year) > 1000 ? year : std::nullopt;
}

std::optional<QString> Reader::track() const
{
    if (byteAt(zeroBeforeTrackAt) != 0 || byteAt(trackAt) == 0)
        return {};
    return QString::number(byteAt(trackAt));
}

/// The comment becomes the frame that an ID3v2 tag would hold it in. Kept where the dialect says
/// so: its last two bytes are left out even when no track number stands there.
void Reader::readComment()
{
    const bool isLong = mDialect.losesNothing && byteAt(zeroBeforeTrackAt) != 0;
    const auto comment = text(commentAt, isLong ? textLength : textLength - 2);
    const QString id = QStringLiteral("COMM");
    if (mIsVersion22 || !comment || mContents.frames.firstObjectForFrameID(id, id))
        return;
    const QByteArray flagsLatin1EnglishNoDescriptor("\0\0\0eng\0", 7);
    mContents.frames.addObject(flagsLatin1EnglishNoDescriptor + comment->toLatin1(), id);
}

void Reader::readGenre()
{
    const int genre = byteAt(genreAt);
    if (genre < GenreTable::allGenres().size())
        set(GenreTable::expandedGenres(QStringLiteral("(%1)").arg(genre)), u"TCO", u"TCON");
}

void Reader::read()
{
    set(text(titleAt, textLength), u"TT2", u"TIT2");
    set(text(artistAt, textLength), u"TP1", u"TPE1");
    set(text(albumAt, textLength), u"TAL", u"TALB");
    set(year(), u"TYE", u"TDRC");
    readComment();
    const auto trackText = track();
    set(trackText, u"TRK", u"TRCK");
    readGenre();
    if (!mContents.readVersion)
        mContents.readVersion = trackText ? QStringLiteral("1.1") : QStringLiteral("1.0");
}

} // namespace

void ID3v1Reader::getAttributesFromID3v1(QByteArrayView tag, const ID3Dialect &dialect,
                                         ID3Contents &into)
{
    if (tag.size() < tagLength)
        throw MalformedData(QStringLiteral("getAttributesFromID3v1"));
    Reader(tag, dialect, into).read();
}
