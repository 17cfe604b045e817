#include "app/songfilter.h"

SongKeyList keysOfFilter()
{
    return {SongKey::Title, SongKey::Artist, SongKey::Album, SongKey::Genres, SongKey::Year};
}

std::vector<bool> songsThatMatch(const QString &text, const QList<SongKeyColumn> &columns)
{
    const QString needle = foldedText(text);
    std::vector<bool> match(static_cast<std::size_t>(columns.front().textNumbers.size()));
    for (const SongKeyColumn &column : columns) {
        const std::vector<bool> contain = column.texts.contain(needle);
        for (std::size_t song = 0; song < match.size(); ++song) {
            const quint32 number = column.textNumbers.at(static_cast<qsizetype>(song));
            if (number != SongKeyColumn::noText && contain[number])
                match[song] = true;
        }
    }
    return match;
}
