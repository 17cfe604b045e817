#include "app/foldedtexts.h"

#include <algorithm>

namespace {

void appendFolded(QStringView text, QString &to)
{
    constexpr char16_t endOfAscii = 0x80;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        if (unit < endOfAscii) {
            to += unit >= u'A' && unit <= u'Z' ? QChar(unit + (u'a' - u'A')) : QChar(unit);
        } else if (i + 1 < text.size() && text[i].isHighSurrogate()
                   && text[i + 1].isLowSurrogate()) {
            to +=
                QChar::fromUcs4(QChar::toCaseFolded(QChar::surrogateToUcs4(text[i], text[i + 1])));
            ++i;
        } else {
            to += QChar::fromUcs4(QChar::toCaseFolded(char32_t{unit}));
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
    if (text.constData() == mLast.constData() && text.size() == mLast.size() && !text.isEmpty())
        return mLastNumber;
    const qsizetype before = mNumbers.size();
    quint32 &number = mNumbers[text];
    if (mNumbers.size() > before) {
        number = static_cast<quint32>(before);
        mTexts.append(text);
    }
    mLast = text;
    mLastNumber = number;
    return number;
}
