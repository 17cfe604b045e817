#include "tags/id3image.h"

#include "base/bytes.h"
#include "base/log.h"
#include "tags/framebodies.h"
#include "tags/id3strings.h"
#include "tags/synchsafe.h"

#include <utility>

namespace {

constexpr QLatin1String mimePrefix("image/");

std::uint8_t byteAt(QByteArrayView bytes, qsizetype at)
{
    return at < bytes.size() ? static_cast<std::uint8_t>(bytes[at]) : 0;
}

qsizetype zeroAtOrAfter(QByteArrayView bytes, qsizetype from)
{
    const qsizetype zero = bytes.indexOf('\0', from);
    return zero < 0 ? bytes.size() : zero;
}

QByteArray restFrom(QByteArrayView body, qsizetype start)
{
    return start < body.size() ? body.sliced(start).toByteArray() : QByteArray();
}

/// The bytes of an empty description's terminator at `at`: two for UTF-16, but one where only
/// one zero byte stands before a text or picture that cannot be UTF-16 with its mark.
qsizetype emptyDescriptionLength(QByteArrayView body, qsizetype at, int encoding)
{
    return ID3Strings::isUTF16(encoding) && byteAt(body, at + 1) == 0 ? 2 : 1;
}

bool isDescriptionEmpty(QByteArrayView body, qsizetype at, int encoding, const ID3Dialect &dialect)
{
    const bool mayBeginWithZero = dialect.skipsZerosByTextUnit
        && encoding == ID3Strings::UTF16BigEndian && byteAt(body, at + 1) != 0;
    return byteAt(body, at) == 0 && !mayBeginWithZero;
}

/// Reads the description at `at` and gives where the picture data begins.
qsizetype readDescription(QByteArrayView body, qsizetype at, ID3Image &image,
                          const ID3Dialect &dialect)
{
    if (isDescriptionEmpty(body, at, image.textEncoding, dialect)) {
        const bool byUnit = dialect.skipsZerosByTextUnit;
        return at + (byUnit ? emptyDescriptionLength(body, at, image.textEncoding) : 1);
    }
    qsizetype consumed = body.size() - at;
    image.description = ID3Strings::id3v23String(body, at, image.textEncoding, consumed, dialect);
    return at + consumed;
}

/// Reads the MIME type of an "APIC" body and gives where the picture type stands.
///
/// Kept where the dialect says so: without "image/" at its front the type is read one byte
/// early, so that it becomes the terminator's 0 and the description begins on the type's byte.
qsizetype readMimeType(QByteArrayView body, ID3Image &image, const ID3Dialect &dialect)
{
    const qsizetype zero = zeroAtOrAfter(body, 1);
    const qsizetype early = dialect.readsPictureTypeInPlace ? 1 : 0;
    if (zero == 1)
        return zero + early;
    const QString mime = QString::fromLatin1(body.sliced(1, zero - 1));
    const auto cases = dialect.readsPictureTypeInPlace ? Qt::CaseInsensitive : Qt::CaseSensitive;
    const bool isComplete = mime.startsWith(mimePrefix, cases);
    image.storedMimeFormat = isComplete ? mime : mimePrefix + mime;
    return zero + (isComplete ? 1 : early);
}

} // namespace

ID3Image ID3Image::imageWithData(const QByteArray &data, std::optional<QString> mimeType)
{
    ID3Image image;
    image.data = data;
    image.storedMimeFormat = std::move(mimeType);
    return image;
}

std::optional<ID3Image> ID3Image::imageWithID3v23Frame(QByteArrayView body,
                                                       const ID3Dialect &dialect)
{
    constexpr qsizetype shortestBody = 4;
    if (body.size() < shortestBody)
        return {};
    ID3Image image;
    image.textEncoding = byteAt(body, 0);
    const qsizetype typeAt = readMimeType(body, image, dialect);
    image.pictureType = byteAt(body, typeAt);
    image.data = restFrom(body, readDescription(body, typeAt + 1, image, dialect));
    return image;
}

namespace {

/// Kept where the dialect says so: the encoding is not looked at, and the description's
/// terminator becomes the first byte of the picture data.
qsizetype readDescriptionOfPIC(QByteArrayView body, qsizetype at, ID3Image &image,
                               const ID3Dialect &dialect)
{
    if (dialect.readsDescriptionOfPIC)
        return readDescription(body, at, image, dialect);
    if (byteAt(body, at) == 0)
        return at + 1;
    const qsizetype zero = zeroAtOrAfter(body, at);
    image.description = QString::fromLatin1(body.sliced(at, zero - at));
    return zero;
}

} // namespace

std::optional<ID3Image> ID3Image::imageWithID3v22Frame(QByteArrayView body,
                                                       const ID3Dialect &dialect)
{
    constexpr qsizetype longestRefused = 6;
    if (body.size() <= longestRefused) {
        qCWarning(logTags, "initWithID3v22Frame insufficient data");
        return {};
    }
    ID3Image image;
    image.textEncoding = byteAt(body, 0);
    image.storedMimeFormat = mimePrefix + QString::fromLatin1(body.sliced(1, 3)).toLower();
    image.pictureType = byteAt(body, 4);
    image.data = restFrom(body, readDescriptionOfPIC(body, 5, image, dialect));
    return image;
}

std::optional<QString> mimeTypeBySignature(QByteArrayView data)
{
    struct Signature {
        QByteArrayView start;
        QLatin1String mimeType;
    };
    static constexpr Signature signatures[]{
        {"\x89PNG\r\n\x1A\n", QLatin1String("image/png")},
        {"\xFF\xD8\xFF", QLatin1String("image/jpeg")},
        {"GIF8", QLatin1String("image/gif")},
        {"BM", QLatin1String("image/bmp")},
        {QByteArrayView("II*\0", 4), QLatin1String("image/tiff")},
        {QByteArrayView("MM\0*", 4), QLatin1String("image/tiff")},
    };
    for (const Signature &signature : signatures) {
        if (data.startsWith(signature.start))
            return signature.mimeType;
    }
    if (data.startsWith("RIFF") && data.size() >= 12 && data.sliced(8, 4) == "WEBP")
        return QStringLiteral("image/webp");
    return {};
}

std::optional<QString> ID3Image::autodetectMIMEFormat(const ID3Dialect &dialect) const
{
    if (dialect.guessesPicturesBySignature)
        return mimeTypeBySignature(data);
    const QByteArrayView bytes(data);
    if (bytes.size() >= 4 && bytes.sliced(1, 3) == "PNG")
        return QStringLiteral("image/png");
    // Kept: the signature's bytes in another order, which no JPEG file begins with.
    if (bytes.startsWith("\xE0\xFF\xD8\xFF"))
        return QStringLiteral("image/jpeg");
    return {};
}

std::optional<QString> ID3Image::mimeFormat(const ID3Dialect &dialect) const
{
    return storedMimeFormat ? storedMimeFormat : autodetectMIMEFormat(dialect);
}

std::optional<QString> ID3Image::filenameSuffix(const ID3Dialect &dialect) const
{
    const auto mime = mimeFormat(dialect);
    if (!mime)
        return {};
    return mime->mid(mimePrefix.size())
        .replace(QLatin1String("jpeg"), QLatin1String("jpg"))
        .toUpper();
}

namespace {

/// The encoding byte and the terminated description. Kept where the dialect says so: pictures are
/// written without their description.
QByteArray encodedDescription(const ID3Image &image, FrameBodies::UnicodeForm unicode,
                              const ID3Dialect &dialect)
{
    const QString none;
    return FrameBodies::terminatedTexts(
        {dialect.keepsPictureDetails ? image.description.value_or(none) : none}, unicode);
}

std::uint8_t writtenType(const ID3Image &image, const ID3Dialect &dialect)
{
    return dialect.keepsPictureDetails ? static_cast<std::uint8_t>(image.pictureType) : 0;
}

} // namespace

QByteArray ID3Image::dataForID3v23Frame(FrameSizes sizes, bool isVersion24,
                                        const ID3Dialect &dialect) const
{
    const QByteArray mime = mimeFormat(dialect).value_or(QString()).toLatin1();
    const bool marked = dialect.writesByteOrderMark && !isVersion24;
    const QByteArray text =
        encodedDescription(*this, marked ? FrameBodies::marked : FrameBodies::bigEndian, dialect);
    const auto size = static_cast<std::uint32_t>(data.size() + mime.size() + 2 + text.size());
    ByteWriter frame;
    frame.reserve(10 + size);
    frame.bytes("APIC");
    frame.u32(sizes == FrameSizes::Accurate ? SynchSafe::synchSafe(size) : size);
    frame.u16(0);
    frame.bytes(text.first(1));
    frame.bytes(mime);
    frame.u8(0);
    frame.u8(writtenType(*this, dialect));
    frame.bytes(text.sliced(1));
    frame.bytes(data);
    return std::move(frame).data();
}

QByteArray ID3Image::dataForID3v22Frame(const ID3Dialect &dialect) const
{
    const QString suffix = filenameSuffix(dialect).value_or(QString());
    if (data.isEmpty() || suffix.isEmpty())
        return {};
    const QByteArray text = encodedDescription(
        *this, dialect.writesByteOrderMark ? FrameBodies::marked : FrameBodies::unmarked, dialect);
    const auto size = static_cast<std::uint32_t>(data.size() + 4 + text.size());
    ByteWriter frame;
    frame.reserve(6 + size);
    frame.bytes("PIC");
    frame.u24(size);
    frame.bytes(text.first(1));
    frame.bytes(suffix.leftJustified(3, u' ').left(3).toLatin1());
    frame.u8(writtenType(*this, dialect));
    frame.bytes(text.sliced(1));
    frame.bytes(data);
    return std::move(frame).data();
}

QString ID3Image::descriptionForLog(const ID3Dialect &dialect) const
{
    const QString null = QStringLiteral("(null)");
    return QStringLiteral("{enc=%1 type=%2 format='%3' suffix='%4' desc='%5' image=%6 bytes}")
        .arg(QString::number(textEncoding), QString::number(pictureType),
             storedMimeFormat.value_or(null), filenameSuffix(dialect).value_or(null),
             description.value_or(null), QString::number(data.size()));
}

ID3Image ID3Image::copy() const
{
    ID3Image image = *this;
    image.description.reset();
    return image;
}
