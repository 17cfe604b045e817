#pragma once

#include <QMap>
#include <QString>
#include <QStringView>
#include <QVarLengthArray>

#include <bitset>
#include <compare>
#include <vector>

/// The simplifiers: search strings and their replacements, longest first, with an index that
/// shows quickly which of them occur in a text.
class SimplifierTable {
public:
    SimplifierTable() = default;
    explicit SimplifierTable(const QMap<QString, QString> &simplifiers);

    /// A text on the stack, unless it is long: titles come by the million.
    using Text = QVarLengthArray<QChar, 256>;

    /// Replaces each simplifier in turn wherever it occurs, in any case. Later ones see what
    /// earlier ones put in. The result stands in one of the two buffers; where no simplifier
    /// occurs it is `text`.
    [[nodiscard]] QStringView apply(QStringView text, Text &buffer, Text &other) const;

private:
    struct Simplifier {
        QString folded; ///< what is searched, in folded case
        QString replacement;
    };
    struct Beginning {
        std::size_t hash;
        std::size_t position;
        auto operator<=>(const Beginning &) const = default;
    };

    // Five bits of each of three characters.
    static constexpr std::size_t characterHashes = 32;
    static constexpr std::size_t hashes = characterHashes * characterHashes * characterHashes;

    static std::size_t withNext(std::size_t hash, std::size_t characterHash)
    {
        return (hash * characterHashes + characterHash) % hashes;
    }

    /// Simplifiers whose turn is still to come, by position: a heap with the next one in front.
    using Due = QVarLengthArray<std::size_t, 16>;

    void index(std::size_t position, qsizetype characters, std::size_t hash);
    void addOccurring(QStringView text, qsizetype begin, qsizetype end, std::size_t from,
                      Due &due) const;
    void addStanding(QStringView text, std::size_t hash, std::size_t from, Due &due) const;

    std::vector<Simplifier> mSimplifiers;
    // By a hash of the first three characters: whether any search string begins so, and which do.
    std::bitset<hashes> mBeginnings;
    std::vector<Beginning> mIndex; // sorted
};
