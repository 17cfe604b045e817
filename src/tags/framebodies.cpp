#include "tags/framebodies.h"

#include <QStringEncoder>

#include <algorithm>

namespace {

constexpr char latin1 = 0;

/// Writes texts of one frame, which share its encoding.
class TextWriter {
public:
    TextWriter(bool allLatin1, FrameBodies::UnicodeForm unicode)
        : mAllLatin1(allLatin1)
        , mByteOrderMark(unicode.byteOrderMark)
        , mBytes(1, allLatin1 ? latin1 : unicode.encoding)
    {
    }

    void bytes(const QByteArray &bytes) { mBytes += bytes; }

    void text(const QString &text)
    {
        if (mAllLatin1)
            mBytes += text.toLatin1();
        else
            unicodeText(text);
    }

    void terminator() { mBytes.append(mAllLatin1 ? 1 : 2, '\0'); }

    [[nodiscard]] QByteArray take() && { return std::move(mBytes); }

private:
    void unicodeText(const QString &text)
    {
        if (mByteOrderMark)
            mBytes += "\xFE\xFF";
        QStringEncoder encoder(QStringEncoder::Utf16BE);
        mBytes += encoder(text);
    }

    bool mAllLatin1;
    bool mByteOrderMark;
    QByteArray mBytes;
};

} // namespace

bool FrameBodies::isLatin1(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x100; });
}

QByteArray FrameBodies::terminatedTexts(const QStringList &strings, UnicodeForm unicode)
{
    TextWriter writer(std::all_of(strings.begin(), strings.end(), isLatin1), unicode);
    for (const QString &string : strings) {
        writer.text(string);
        writer.terminator();
    }
    return std::move(writer).take();
}

QByteArray FrameBodies::singleText(const QString &string, UnicodeForm unicode)
{
    TextWriter writer(isLatin1(string), unicode);
    writer.text(string);
    return std::move(writer).take();
}

QByteArray FrameBodies::textBlock(const TextBlock &block, UnicodeForm unicode)
{
    const QString descriptor = block.desc.value_or(QString());
    const QString text = block.text.value_or(QString());
    const QByteArray language = block.lang.value_or(QStringLiteral("eng")).toLatin1();
    TextWriter writer(isLatin1(descriptor) && isLatin1(text), unicode);
    writer.bytes(language.size() == 3 ? language : QByteArray(3, '\0'));
    writer.text(descriptor);
    writer.terminator();
    writer.text(text);
    return std::move(writer).take();
}
