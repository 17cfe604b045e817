#include "text/simplifiertable.h"

#include <algorithm>

namespace {

/// Case folded as QString's case-insensitive searches do it: one unit for one unit.
char16_t fold(QChar c)
{
    const char16_t unit = c.unicode();
    if (unit < 0x80)
        return unit >= 'A' && unit <= 'Z' ? static_cast<char16_t>(unit + 32) : unit;
    return c.toCaseFolded().unicode();
}

QString folded(QString text)
{
    for (QChar &c : text)
        c = fold(c);
    return text;
}

constexpr std::size_t hashed(char16_t unit)
{
    return unit & 0x7FU;
}

constexpr std::size_t hashedPair(char16_t first, char16_t second)
{
    return hashed(first) * 128 + hashed(second);
}

bool standsAt(QStringView text, qsizetype position, QStringView folded)
{
    if (text.size() - position < folded.size())
        return false;
    return std::equal(folded.begin(), folded.end(), text.begin() + position,
                      [](QChar wanted, QChar found) { return wanted == fold(found); });
}

} // namespace

SimplifierTable::SimplifierTable(const QMap<QString, QString> &simplifiers)
{
    for (auto it = simplifiers.begin(); it != simplifiers.end(); ++it) {
        if (!it.key().isEmpty())
            mSimplifiers.push_back({folded(it.key()), it.value()});
    }
    std::ranges::stable_sort(mSimplifiers, std::ranges::greater{},
                             [](const Simplifier &simplifier) { return simplifier.folded.size(); });
    for (std::size_t position = 0; position < mSimplifiers.size(); ++position)
        index(position);
    std::ranges::sort(mIndex);
    for (const Beginning &beginning : mIndex)
        mBeginnings.set(beginning.pair);
}

void SimplifierTable::index(std::size_t position)
{
    const QString &key = mSimplifiers[position].folded;
    const char16_t first = key[0].unicode();
    if (key.size() > 1) {
        mIndex.push_back({hashedPair(first, key[1].unicode()), position});
        return;
    }
    for (char16_t second = 0; second < 128; ++second)
        mIndex.push_back({hashedPair(first, second), position});
}

std::size_t SimplifierTable::firstOccurring(QStringView text, std::size_t from) const
{
    std::size_t found = size();
    char16_t next = text.isEmpty() ? u'\0' : fold(text.front());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = next;
        next = i + 1 < text.size() ? fold(text[i + 1]) : u'\0';
        const std::size_t pair = hashedPair(unit, next);
        if (!mBeginnings.test(pair))
            continue;
        auto candidate = std::ranges::lower_bound(mIndex, Beginning{pair, from});
        for (; candidate != mIndex.end() && candidate->pair == pair; ++candidate) {
            if (candidate->position >= found)
                break;
            if (standsAt(text, i, mSimplifiers[candidate->position].folded))
                found = candidate->position;
        }
    }
    return found;
}

QString SimplifierTable::replaced(const QString &text, const Simplifier &simplifier) const
{
    QString result;
    result.reserve(text.size() + simplifier.replacement.size());
    for (qsizetype i = 0; i < text.size();) {
        if (standsAt(text, i, simplifier.folded)) {
            result += simplifier.replacement;
            i += simplifier.folded.size();
        } else {
            result += text[i++];
        }
    }
    return result;
}

QString SimplifierTable::applied(QString text, std::size_t first) const
{
    for (std::size_t next = first; next < size(); next = firstOccurring(text, next + 1))
        text = replaced(text, mSimplifiers[next]);
    return text;
}
