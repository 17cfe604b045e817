#include "app/foldedtexts.h"

#include <algorithm>

namespace {

void appendFolded(QStringView text, QString &to)
{
    constexpr char16_t endOfAscii = 0x80;
    const qsizetype before = to.size();
    to.resize(before + text.size()); // folding one character keeps its length
    QChar *out = to.data() + before;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        const bool isPair =
            text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (unit < endOfAscii) {
            *out++ = unit >= u'A' && unit <= u'Z' ? QChar(unit + (u'a' - u'A')) : QChar(unit);
        } else if (isPair) {
            const char32_t folded =
                QChar::toCaseFolded(QChar::surrogateToUcs4(text[i], text[i + 1]));
            *out++ = QChar(QChar::highSurrogate(folded));
            *out++ = QChar(QChar::lowSurrogate(folded));
            ++i;
        } else {
            *out++ = QChar(text[i].toCaseFolded());
        }
    }
}

} // namespace

QString foldedText(QStringView text)
{
    QString folded;
    folded.reserve(text.size());
    appendFolded(text, folded);
    return folded;
}

void FoldedTexts::append(QStringView text)
{
    appendFolded(text, mFolded);
    mEnds.append(mFolded.size());
}

QStringView FoldedTexts::at(qsizetype number) const
{
    const qsizetype from = begin(number);
    return QStringView(mFolded).sliced(from, mEnds.at(number) - from);
}

std::vector<bool> FoldedTexts::contain(QStringView needle) const
{
    std::vector<bool> contain(static_cast<std::size_t>(size()));
    auto text = mEnds.cbegin(); // the one that the place found begins in
    for (qsizetype place = 0; (place = mFolded.indexOf(needle, place)) >= 0;) {
        text = std::upper_bound(text, mEnds.cend(), place);
        if (place + needle.size() > *text) { // across the border of two texts
            ++place;
            continue;
        }
        contain[static_cast<std::size_t>(text - mEnds.cbegin())] = true;
        place = *text;
    }
    return contain;
}

quint32 TextPool::numberOf(const QString &text)
{
    if (mTexts.size() == 0 || text != mLast) {
        mTexts.append(text);
        mLast = text;
    }
    return static_cast<quint32>(mTexts.size() - 1);
}
