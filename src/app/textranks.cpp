#include "app/textranks.h"

#include <QtEndian>

#include <algorithm>
#include <memory>
#include <span>

namespace {

using Byte = unsigned char;
constexpr std::size_t wordBytes = sizeof(quint64);

/// Turns texts into bytes whose plain order is that of the texts: a run of digits becomes the byte
/// of "0", how many digits it has without leading zeros, and these; other characters are UTF-8,
/// which keeps the order of code points. No byte is 0, so that 0 can stand for the end.
class KeyWriter {
public:
    KeyWriter(Byte *to, Digits digits)
        : mTo(to)
        , mDigits(digits)
    {
    }

    /// No more than `mostBytes` for each unit of the text, and an end.
    static constexpr std::size_t mostBytes = 3;
    /// Returns what is behind the key.
    Byte *write(QStringView text)
    {
        while (!text.isEmpty()) {
            if (mDigits == Digits::AsNumbers && isDigit(text.front()))
                takeNumber(text);
            else
                takeCharacter(text);
        }
        put(0);
        return mTo;
    }

private:
    static bool isDigit(QChar character) { return character >= u'0' && character <= u'9'; }

    void takeNumber(QStringView &text)
    {
        while (!text.isEmpty() && text.front() == u'0')
            text = text.sliced(1);
        qsizetype digits = 0;
        while (digits < text.size() && isDigit(text[digits]))
            ++digits;
        put('0');
        qsizetype count = digits;
        for (; count >= maxCount; count -= maxCount)
            put(maxCount + 1);
        put(static_cast<char32_t>(count) + 1);
        for (const QChar digit : text.first(digits))
            put(digit.unicode());
        text = text.sliced(digits);
    }

    void takeCharacter(QStringView &text)
    {
        const bool isPair =
            text.size() > 1 && text[0].isHighSurrogate() && text[1].isLowSurrogate();
        putCharacter(isPair ? QChar::surrogateToUcs4(text[0], text[1])
                            : char32_t{text[0].unicode()});
        text = text.sliced(isPair ? 2 : 1);
    }

    void putCharacter(char32_t character)
    {
        if (character <= 1) { // two bytes, for the sake of those without a 0
            put(1);
            put(character + 1);
        } else if (character < 0x80) {
            put(character);
        } else if (character < 0x800) {
            put(0xC0 | character >> 6);
            putRest(character, 0);
        } else if (character < 0x10000) {
            put(0xE0 | character >> 12);
            putRest(character, 1);
        } else {
            put(0xF0 | character >> 18);
            putRest(character, 2);
        }
    }

    void putRest(char32_t character, int bytesBehind)
    {
        for (int byte = bytesBehind; byte >= 0; --byte)
            put(0x80 | (character >> (6 * byte) & 0x3F));
    }

    void put(char32_t byte) { *mTo++ = static_cast<Byte>(byte); }

    static constexpr qsizetype maxCount = 254;

    Byte *mTo;
    Digits mDigits;
};

/// Ranks keys by eight bytes at a time: those that are equal so far are ranked by the next eight.
class KeyRanking {
public:
    KeyRanking(const FoldedTexts &texts, Digits digits)
        : mKeys(new Byte[KeyWriter::mostBytes * static_cast<std::size_t>(texts.length())
                         + static_cast<std::size_t>(texts.size()) + wordBytes])
        , mItems(static_cast<std::size_t>(texts.size()))
        , mRanks(texts.size())
    {
        mBegins.reserve(mItems.size());
        KeyWriter writer(mKeys.get(), digits);
        Byte *end = mKeys.get();
        for (qsizetype number = 0; number < texts.size(); ++number) {
            mBegins.push_back(end);
            end = writer.write(texts.at(number));
            mItems[static_cast<std::size_t>(number)].number = static_cast<quint32>(number);
        }
        std::fill_n(end, wordBytes, Byte{0}); // words may be read beyond the last key
    }

    QList<quint32> ranks()
    {
        rank(mItems, 0);
        return std::move(mRanks);
    }

private:
    struct Item {
        quint64 word;
        quint32 number;
    };
    using Items = std::span<Item>;

    /// Bytes behind the end of the key are 0.
    [[nodiscard]] static quint64 wordAt(const Byte *place)
    {
        const auto word = qFromBigEndian<quint64>(place);
        constexpr quint64 ones = 0x0101010101010101;
        constexpr quint64 highBits = 0x8080808080808080;
        if (((word - ones) & ~word & highBits) == 0)
            return word;
        quint64 kept = 0;
        for (quint64 mask = quint64{0xFF} << 56; mask && (word & mask); mask >>= 8)
            kept |= word & mask;
        return kept;
    }

    /// Where all are equal the next eight bytes are taken at once, so that long texts do not
    /// exhaust the stack.
    void rank(Items items, std::size_t depth)
    {
        while (!haveWords(items, depth))
            depth += wordBytes;
        std::sort(items.begin(), items.end(),
                  [](const Item &item, const Item &other) { return item.word < other.word; });
        for (std::size_t from = 0; from < items.size();) {
            std::size_t to = from + 1;
            while (to < items.size() && items[to].word == items[from].word)
                ++to;
            rankEqual(items.subspan(from, to - from), depth);
            from = to;
        }
    }

    /// Reads the words; false when all are equal and go on.
    bool haveWords(Items items, std::size_t depth)
    {
        bool areEqual = true;
        for (Item &item : items) {
            item.word = wordAt(mBegins[item.number] + depth);
            areEqual = areEqual && item.word == items.front().word;
        }
        return !areEqual || items.empty() || isLast(items.front().word);
    }

    /// Whether the key ends in this word.
    static bool isLast(quint64 word) { return (word & 0xFF) == 0; }

    void rankEqual(Items items, std::size_t depth)
    {
        if (items.size() > 1 && !isLast(items.front().word))
            return rank(items, depth + wordBytes);
        for (const Item &item : items)
            mRanks[item.number] = mNext;
        ++mNext;
    }

    std::unique_ptr<Byte[]> mKeys; ///< each ends with a 0
    std::vector<const Byte *> mBegins;
    std::vector<Item> mItems;
    QList<quint32> mRanks;
    quint32 mNext = 0;
};

} // namespace

QList<quint32> ranksOf(const FoldedTexts &texts, Digits digits)
{
    return KeyRanking(texts, digits).ranks();
}
