#include "text/simplifiertable.h"

#include <algorithm>
#include <optional>

namespace {

/// By how much a text may grow: replacements that feed each other could double it again and again.
constexpr qsizetype longestGrowth = 1 << 16;

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

/// The part of a text that replacements have put into it or brought together.
struct Touched {
    qsizetype begin = 0;
    qsizetype end = 0;
};

/// In one pass from left to right, as long as the result has no more than `longest` characters.
Touched replace(QStringView text, QStringView folded, QStringView replacement, qsizetype longest,
                SimplifierTable::Text &result)
{
    result.clear();
    const auto append = [&result](QStringView part) { result.append(part.data(), part.size()); };
    std::optional<Touched> touched;
    qsizetype copied = 0;
    for (qsizetype i = 0; i + folded.size() <= text.size() && result.size() <= longest;) {
        if (fold(text[i]) != folded.front() || !beginsWith(text.sliced(i), folded)) {
            ++i;
            continue;
        }
        append(text.sliced(copied, i - copied));
        if (!touched)
            touched = {.begin = result.size()};
        append(replacement);
        touched->end = result.size();
        copied = i += folded.size();
    }
    append(text.sliced(copied));
    return touched.value_or(Touched());
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

/// Makes those due, from a position on, that stand at the beginning of the text.
void SimplifierTable::addStanding(QStringView text, std::size_t hash, std::size_t from,
                                  Due &due) const
{
    auto candidate = std::ranges::lower_bound(mIndex, Beginning{hash, from});
    for (; candidate != mIndex.end() && candidate->hash == hash; ++candidate) {
        if (!beginsWith(text, mSimplifiers[candidate->position].folded))
            continue;
        due.push_back(candidate->position);
        std::ranges::push_heap(due, std::ranges::greater{});
    }
}

/// Makes those due, from a position on, that stand in the text at a place from `begin` to `end`.
void SimplifierTable::addOccurring(QStringView text, qsizetype begin, qsizetype end,
                                   std::size_t from, Due &due) const
{
    const auto hashAt = [text](qsizetype i) { return i < text.size() ? hashed(text[i]) : 0; };
    std::size_t hash = withNext(hashAt(begin), hashAt(begin + 1));
    for (qsizetype i = begin; i < end; ++i) {
        hash = withNext(hash, hashAt(i + 2));
        if (mBeginnings.test(hash))
            addStanding(text.sliced(i), hash, from, due);
    }
}

QStringView SimplifierTable::apply(QStringView text, Text &buffer, Text &other) const
{
    Due due;
    const qsizetype longest = text.size() + longestGrowth;
    if (!mSimplifiers.empty())
        addOccurring(text, 0, text.size(), 0, due);
    Text *result = &buffer;
    while (!due.empty() && text.size() <= longest) {
        const std::size_t position = due.front();
        const auto &[folded, replacement] = mSimplifiers[position];
        const Touched touched = replace(text, folded, replacement, longest, *result);
        text = *result;
        result = result == &buffer ? &other : &buffer;
        while (!due.empty() && due.front() == position) {
            std::ranges::pop_heap(due, std::ranges::greater{});
            due.pop_back();
        }
        // What occurs only now overlaps what was touched, and is no longer than this one.
        addOccurring(text, std::max<qsizetype>(touched.begin - folded.size() + 1, 0), touched.end,
                     position + 1, due);
    }
    return text;
}
