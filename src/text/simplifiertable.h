#pragma once

#include <QMap>
#include <QString>
#include <QStringView>

#include <bitset>
#include <compare>
#include <vector>

/// The simplifiers: search strings and their replacements, longest first, with an index that
/// shows quickly which of them occur in a text.
class SimplifierTable {
public:
    SimplifierTable() = default;
    explicit SimplifierTable(const QMap<QString, QString> &simplifiers);

    [[nodiscard]] bool isEmpty() const { return mSimplifiers.empty(); }

    /// The position, in order of use, of the first simplifier from `from` on that occurs in the
    /// text; size() when none does.
    [[nodiscard]] std::size_t firstOccurring(QStringView text, std::size_t from) const;
    [[nodiscard]] std::size_t size() const { return mSimplifiers.size(); }

    /// The text with each simplifier in turn, from `first` on, replaced wherever it occurs, in
    /// any case. Later ones see what earlier ones put in.
    [[nodiscard]] QString applied(QString text, std::size_t first) const;

private:
    struct Simplifier {
        QString folded; ///< what is searched, in folded case
        QString replacement;
    };

    struct Beginning {
        std::size_t pair;
        std::size_t position;
        auto operator<=>(const Beginning &) const = default;
    };

    static constexpr std::size_t pairs = 128 * 128;

    void index(std::size_t position);
    [[nodiscard]] QString replaced(const QString &text, const Simplifier &simplifier) const;

    std::vector<Simplifier> mSimplifiers;
    // By a hash of the first two characters: whether any search string begins so, and which do.
    std::bitset<pairs> mBeginnings;
    std::vector<Beginning> mIndex; // sorted
};
