#pragma once

#include "gathering/webdbinterface.h"

/// What the sources have in common that read a record shop's catalogue: which albums they keep, and
/// the fields that are cut out of an album's page.
class RecordShopInterface : public WebDBInterface {
    Q_OBJECT

public:
    static constexpr Assets resourcesPossiblyAvailable =
        AssetArtwork | AssetAlbumName | AssetYear | AssetSongTitle | AssetTrack | AssetGenre;

    using WebDBInterface::WebDBInterface;

protected:
    /// Which run of visible text behind its marker is the year.
    struct YearRuns {
        int afterYear1;
        int afterYear2;
    };

    /// Adds the album if there is one and it is by the artist who is searched; for a song of a
    /// compilation whoever it is by.
    void addAlbumOfArtist(std::optional<AlbumInfo> album);
    /// Whether an artist's name, as a page shows it, is that of the artist who is searched.
    [[nodiscard]] bool isListedArtist(const QString &shownName) const;

    /// The address of a link, the prefix below `prefixKey` put before it. None when the link would
    /// lead to another host than the prefix names: pages come from strangers.
    [[nodiscard]] QUrl linkedURL(const QString &prefixKey, const QString &link) const;
    /// A piece of a page with its character references replaced, where the definition's
    /// "characterReferences" says so; without that key they stay as they are.
    [[nodiscard]] QString unescaped(const QString &piece) const;
    /// What is seen behind the marker below `key`, unescaped; nothing when that is empty.
    [[nodiscard]] std::optional<QString> shownTextOn(const QString &page, const QString &key,
                                                     int numStrings = 1) const;

    // The fields of an album's page.

    /// An artist or a title, without what stands in brackets and parentheses.
    [[nodiscard]] std::optional<QString> nameOn(const QString &page, const QString &key) const;
    [[nodiscard]] std::optional<QString> genreOn(const QString &page) const;
    [[nodiscard]] std::optional<QString> yearOn(const QString &page, const YearRuns &runs) const;
    /// The titles of the tracks; of each the artist is cut off that stands behind one of the
    /// delimiters, which are tried one after the other.
    [[nodiscard]] std::optional<QStringList> tracksOn(const QString &page, const QString &ofArtist,
                                                      const QStringList &delimiters) const;
};

/// The year in a text such as "May 1987 (first 1971)": the last four characters whose number is
/// above 1700.
[[nodiscard]] std::optional<QString> lastYearIn(const QString &text);
