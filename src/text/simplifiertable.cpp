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

/// The same for all cases of a letter.
std::size_t hashed(QChar c)
{
    return (c.unicode() < 0x80 ? c.unicode() : fold(c)) & 31U;
}

bool beginsWith(QStringView text, QStringView folded)
{
    if (text.size() < folded.size())
        return false;
    return std::equal(folded.begin(), folded.end(), text.begin(),
                      [](QChar wanted, QChar found) { return wanted == fold(found); });
}

/// In one pass from left to right.
void replace(QStringView text, QStringView folded, QStringView replacement,
             SimplifierTable::Text &result)
{
    result.clear();
    const auto append = [&result](QStringView part) { result.append(part.data(), part.size()); };
    qsizetype copied = 0;
    for (qsizetype i = 0; i + folded.size() <= text.size();) {
        if (fold(text[i]) != folded.front() || !beginsWith(text.sliced(i), folded)) {
            ++i;
            continue;
        }
        append(text.sliced(copied, i - copied));
        append(replacement);
        copied = i += folded.size();
    }
    append(text.sliced(copied));
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
        index(position, 0, 0);
    std::ranges::sort(mIndex);
}

/// Enters a search string under its hash; one of fewer than three characters under every hash
/// that it may have with what follows it.
void SimplifierTable::index(std::size_t position, qsizetype characters, std::size_t hash)
{
    const QString &text = mSimplifiers[position].folded;
    if (characters == 3) {
        mBeginnings.set(hash);
        mIndex.push_back({hash, position});
    } else if (characters < text.size()) {
        index(position, characters + 1, withNext(hash, hashed(text[characters])));
    } else {
        for (std::size_t any = 0; any < characterHashes; ++any)
            index(position, characters + 1, withNext(hash, any));
    }
}

/// The first simplifier between two positions that stands at the beginning of the text, else
/// `end`.
std::size_t SimplifierTable::firstAt(QStringView text, std::size_t hash, std::size_t from,
                                     std::size_t end) const
{
    auto candidate = std::ranges::lower_bound(mIndex, Beginning{hash, from});
    for (; candidate != mIndex.end() && candidate->hash == hash; ++candidate) {
        if (candidate->position >= end)
            break;
        if (beginsWith(text, mSimplifiers[candidate->position].folded))
            return candidate->position;
    }
    return end;
}

std::size_t SimplifierTable::firstOccurring(QStringView text, std::size_t from) const
{
    std::size_t found = size();
    if (found == 0)
        return found;
    std::size_t hash = 0;
    for (qsizetype i = 0; i < text.size() + 2; ++i) {
        hash = withNext(hash, i < text.size() ? hashed(text[i]) : 0);
        if (i >= 2 && mBeginnings.test(hash))
            found = firstAt(text.sliced(i - 2), hash, from, found);
    }
    return found;
}

void SimplifierTable::apply(Text &text, std::size_t first) const
{
    Text other;
    Text *from = &text;
    Text *to = &other;
    for (std::size_t next = first; next < size(); next = firstOccurring(*from, next + 1)) {
        replace(*from, mSimplifiers[next].folded, mSimplifiers[next].replacement, *to);
        std::swap(from, to);
    }
    if (from != &text)
        text = other;
}
