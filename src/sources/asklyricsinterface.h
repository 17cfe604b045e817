#pragma once

#include "sources/lyricssource.h"

/// Lyrics from a site that is searched by artist: from the list of artists to the artist's songs,
/// and from there to the words.
class AskLyricsInterface : public LyricsSource {
    Q_OBJECT

public:
    using LyricsSource::LyricsSource;

    [[nodiscard]] QString className() const override
    {
        return QStringLiteral("AskLyricsInterface");
    }

protected:
    void startSearch() override;

private:
    struct Entry {
        QString name; ///< simplified
        QString cell; ///< as it stands on the page
    };

    void askArtistListCompleted(const FetchResult &result);
    void askSongListCompleted(const FetchResult &result);
    void askLyricsCompleted(const FetchResult &result);
    [[nodiscard]] QList<Entry> entriesOn(const FetchResult &result, const QString &recipeKey);
    [[nodiscard]] std::optional<QString> linkOf(const Entry &entry) const;
};
